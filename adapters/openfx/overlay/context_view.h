// What the current OpenGL context shows of a plane, and a surface for tools that draw there.

#pragma once

#include <optional>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/viewer/viewer_surface.h"

namespace ruvex::openfx {

/// The pixels of the current viewport, and the part of the plane that they show.
struct ContextView {
    int x, y, width, height;                       ///< The viewport, in pixels of the window.
    double left, bottom, planeWidth, planeHeight;  ///< Sizes are above 0.
};

/// The view of the current context by its matrices. No value if there is no context, if the plane
/// is turned, mirrored or in perspective, or without a viewport. The system's OpenGL is opened if
/// it has to be.
std::optional<ContextView> currentView();

/// The present context of a host as a surface: draws where the host does. Between the constructor
/// and the destructor, what is drawn is confined to the view. On one thread, on the stack.
class ContextDrawing {
public:
    /// `view` is that of the current context; positions of the world are (plane - origin) / scale.
    ContextDrawing(const ContextView& view, double originX, double originY, double scale);
    ContextDrawing(const ContextDrawing&) = delete;
    ContextDrawing& operator=(const ContextDrawing&) = delete;
    ~ContextDrawing();

    /// False if OpenGL has no room to keep the host's state; then nothing may be drawn.
    bool canDraw() const { return saved_; }
    IViewerSurface& surface() const { return *surface_; }

private:
    ComPtr<IViewerSurface> surface_;
    bool saved_ = false;
};

}  // namespace ruvex::openfx
