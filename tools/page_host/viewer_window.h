// The viewer: the picture through the effect, the on-screen controls over it, and the pen.

#pragma once

#include <memory>
#include <optional>

#include "runtime/headless_surface.h"
#include "runtime/viewer.h"
#include "tools/page_host/device_bitmap.h"
#include "tools/page_host/edited_effect.h"
#include "tools/page_host/viewer_layout.h"
#include "tools/page_host/window.h"

namespace ruvex::page_host {

/// A child window. The controls are drawn off screen and copied into it: a child window with an
/// OpenGL context of its own stays black on some systems.
///
/// The mouse is the pen: the left button is the main one. Escape ends a drag.
class ViewerWindow final : public Window {
public:
    ViewerWindow(HWND parent, int controlId);

    /// Shows an effect, or nothing for null. The effect is kept until the next call.
    void show(EditedEffect* effect);

    /// The next paint renders a new frame.
    void frameChanged();

    /// The picture on the screen, in pixels; empty without an effect.
    RECT pictureOnScreen() const;

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool onPen(UINT message, LPARAM lParam);
    void press(LONG button, LPARAM point);
    void release(LONG button, LPARAM point);
    void endDrag();

    void paint();
    void draw(DeviceBitmap& canvas);
    void drawPicture(HDC context);
    void drawControls(DeviceBitmap& canvas);
    runtime::HeadlessSurface& surfaceFor(const ViewerLayout& layout);
    ViewerLayout layout() const;
    tagVWPENEVENT eventAt(LPARAM point, LONG button) const;

    EditedEffect* effect_ = nullptr;
    std::unique_ptr<runtime::Viewer> tools_;
    /// The frame as the system draws it: blue, green, red, alpha. No value: to be rendered.
    std::optional<Picture> frame_;
    /// One surface as large as the screen, of which a part is used: a tool makes its display lists
    /// once, for one OpenGL context.
    ComPtr<runtime::HeadlessSurface> surface_;
    SIZE largest_{};  ///< The surface as a whole, in pixels.
    int buttonsDown_ = 0;
};

}  // namespace ruvex::page_host
