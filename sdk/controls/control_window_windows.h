// The windows of the host's own controls on Windows: classes of their own, in the place of the
// template's statics.

#pragma once

#include <windows.h>

namespace ruvex::controls {

/// A window class. Each call of the model may destroy the window: the procedure looks its state up
/// again after it.
struct ControlWindowClass {
    const wchar_t* name;
    WNDPROC procedure;
};

/// Creates a window of the class in the place of a static, with its identifier, order among its
/// siblings, rectangle, font and the style bits for visible, disabled, group and tab stop, and
/// destroys the static. Null if the system refuses; the static is then still there.
HWND replaceStatic(HWND window, const ControlWindowClass& controlClass);

/// The classes.
extern const ControlWindowClass kNumberWindow;
extern const ControlWindowClass kChipWindow;

/// The font that WM_SETFONT has set, or the system's for dialogs.
HFONT fontOf(HWND window);

/// Paints in WM_PAINT: a context with the control's font.
class ControlPaint {
public:
    explicit ControlPaint(HWND window);
    ControlPaint(const ControlPaint&) = delete;
    ControlPaint& operator=(const ControlPaint&) = delete;
    ~ControlPaint();

    HDC context() const { return context_; }
    const RECT& area() const { return area_; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC context_;
    HGDIOBJ fontBefore_;
    RECT area_{};
};

}  // namespace ruvex::controls
