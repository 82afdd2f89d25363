// The window of a colour chip: a button in its colour, which opens a dialog to choose another one.

// clang-format off
#include <windows.h>
#include <commdlg.h>  // needs the names of windows.h
// clang-format on

#include <utility>

#include "sdk/com/guarded.h"
#include "sdk/controls/colour_picker.h"
#include "sdk/controls/control_window_windows.h"
#include "sdk/controls/host_controls.h"

namespace {

/// Asks with the system's dialog, which knows no alpha: that stays.
std::optional<CDSColourChip::Colour> askSystem(HWND owner, const CDSColourChip::Colour& colour) {
    constexpr std::size_t kCustomColours = 16;
    static thread_local COLORREF custom[kCustomColours] = {};
    CHOOSECOLORW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.rgbResult = RGB(colour[0], colour[1], colour[2]);
    question.lpCustColors = custom;
    question.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (!ChooseColorW(&question)) return std::nullopt;
    const COLORREF chosen = question.rgbResult;
    return CDSColourChip::Colour{GetRValue(chosen), GetGValue(chosen), GetBValue(chosen),
                                 colour[3]};
}

thread_local DSColourPicker picker = askSystem;

}  // namespace

DSColourPicker DSUseColourPicker(DSColourPicker newPicker) {
    return std::exchange(picker, newPicker ? std::move(newPicker) : DSColourPicker(askSystem));
}

namespace ruvex::controls {
namespace {

constexpr LONG_PTR kPressed = 1;

bool isPressed(HWND window) {
    return GetWindowLongPtrW(window, GWLP_USERDATA) == kPressed;
}

void setPressed(HWND window, bool pressed) {
    SetWindowLongPtrW(window, GWLP_USERDATA, pressed ? kPressed : 0);
    InvalidateRect(window, nullptr, FALSE);
}

/// The chip may have gone while the dialog was open.
void choose(HWND window) {
    guarded([&] {
        const auto chip = DSColourChipOf(window);
        if (!chip) return S_FALSE;
        const DSColourPicker ask = picker;
        const auto chosen = ask(GetAncestor(window, GA_ROOT), chip->colour());
        if (chosen && DSColourChipOf(window).get() == chip.get()) chip->pick(*chosen);
        return S_OK;
    });
}

void release(HWND window, LPARAM place) {
    if (!isPressed(window)) return;
    setPressed(window, false);
    if (GetCapture() == window) ReleaseCapture();
    RECT area{};
    GetClientRect(window, &area);
    const POINT point{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    if (PtInRect(&area, point)) choose(window);
}

void paint(HWND window) {
    const ControlPaint canvas(window);
    RECT area = canvas.area();
    DrawEdge(canvas.context(), &area, isPressed(window) ? EDGE_SUNKEN : EDGE_RAISED,
             BF_RECT | BF_ADJUST);
    const auto chip = DSColourChipOf(window);
    const auto colour = chip ? chip->colour() : CDSColourChip::Colour{};
    const HBRUSH brush = CreateSolidBrush(RGB(colour[0], colour[1], colour[2]));
    FillRect(canvas.context(), &area, brush);
    DeleteObject(brush);
    InflateRect(&area, -1, -1);
    if (GetFocus() == window) DrawFocusRect(canvas.context(), &area);
}

LRESULT CALLBACK chipProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_BUTTON;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            SetFocus(window);
            SetCapture(window);
            setPressed(window, true);
            return 0;
        case WM_LBUTTONUP:
            release(window, lParam);
            return 0;
        case WM_CAPTURECHANGED:
            if (isPressed(window) && reinterpret_cast<HWND>(lParam) != window) {
                setPressed(window, false);
            }
            return 0;
        case WM_KEYDOWN:
            if (wParam == VK_SPACE) setPressed(window, true);
            return 0;
        case WM_KEYUP:
            // Not for a key that went down in another window.
            if (wParam != VK_SPACE || !isPressed(window)) return 0;
            setPressed(window, false);
            choose(window);
            return 0;
        case BM_CLICK:
            choose(window);
            return 0;
        case WM_KILLFOCUS:
            setPressed(window, false);
            return 0;
        case WM_SETFOCUS:
        case WM_ENABLE:
            InvalidateRect(window, nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint(window);
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

const ControlWindowClass kChipWindow{L"DSNewColorChipCtrl", chipProcedure};

}  // namespace ruvex::controls
