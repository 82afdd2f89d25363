// A surface on which trees and single shapes are drawn.

#pragma once

#include <functional>

#include "overlay/vx_t_manager.h"
#include "tests/overlay_pictures/state.h"

namespace ruvex::test {

/// The surface of all such states, with the origin of the tree in its middle. A unit is a pixel.
inline constexpr int kTreeSize = 257, kTreeMiddle = 128;

/// The area of a text that begins at (x, y), in units of the tree: to the right border at most.
TextArea textAt(float x, float y, std::size_t characters);

/// Draws over a backdrop, with OpenGL in the state in which the tool draws: line stipple on, and a
/// font. Throws std::runtime_error if OpenGL has an error then.
StatePicture drawOnSurface(const std::function<void()>& draw, Backdrop backdrop = Backdrop::Grey,
                           std::vector<TextArea> texts = {});

}  // namespace ruvex::test
