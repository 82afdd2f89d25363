// The scripted states of the on-screen controls, in their order.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "runtime/headless_surface.h"
#include "tests/overlay_pictures/state_picture.h"

namespace ruvex::test {

/// Each call of `draw` draws the state from nothing: an effect, a tree, a surface of its own. The
/// picture has no name yet. Throws std::runtime_error.
struct State {
    std::string name;
    std::function<StatePicture()> draw;
};

/// The crop box of the module's effect in the viewer.
std::vector<State> cropStates();
/// Axes, groups and rectangles in trees of their own, under a scripted pen.
std::vector<State> widgetStates();
/// Lines, arcs, discs, arrows and texts.
std::vector<State> shapeStates();

/// The pixels of a surface of this size over a backdrop.
StatePicture pictureOf(const runtime::HeadlessSurface& surface, int width, int height,
                       Backdrop backdrop);

}  // namespace ruvex::test
