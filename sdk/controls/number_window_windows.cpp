// The window of a number control: a field with the number, which the user types, steps with arrow
// keys and the wheel, and drags sideways.

#include <cstdlib>
#include <new>
#include <string>

#include "sdk/com/guarded.h"
#include "sdk/controls/control_window_windows.h"
#include "sdk/controls/host_controls.h"

namespace ruvex::controls {
namespace {

/// The pointer moves so far, in pixels, before a press becomes a drag.
constexpr int kDragThreshold = 3;
/// Between the field's edge and its text.
constexpr int kIndent = 4;
constexpr wchar_t kBackspace = 8;

/// What a window remembers between messages. The pointer's positions are in pixels of the window.
struct NumberState {
    HFONT font = nullptr;
    bool typing = false;  ///< The field shows what the user is typing.
    bool pressed = false;
    int pressedAt = 0;
    int wheelRest = 0;  ///< Movement of the wheel that is no whole notch yet.
};

NumberState* stateOf(HWND window) {
    return reinterpret_cast<NumberState*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

DSStepKeys heldKeys() {
    if (GetKeyState(VK_SHIFT) < 0) return DSStepKeys::Shift;
    return GetKeyState(VK_CONTROL) < 0 ? DSStepKeys::Control : DSStepKeys::None;
}

/// The user's typing ends: the model has taken the text or dropped it.
void endTyping(HWND window) {
    if (NumberState* const state = stateOf(window)) state->typing = false;
    InvalidateRect(window, nullptr, FALSE);
}

void enter(HWND window) {
    if (const auto number = DSNumberControlOf(window)) number->enter();
    if (IsWindow(window)) endTyping(window);
}

void revert(HWND window) {
    if (const auto number = DSNumberControlOf(window)) number->revert();
    if (!IsWindow(window)) return;
    if (GetCapture() == window) ReleaseCapture();
    endTyping(window);
}

void step(HWND window, int steps) {
    if (const auto number = DSNumberControlOf(window)) number->step(steps, heldKeys());
    if (IsWindow(window)) endTyping(window);
}

/// The first character replaces the number, a backspace shortens it.
void type(HWND window, wchar_t character) {
    const auto number = DSNumberControlOf(window);
    NumberState* const state = stateOf(window);
    if (!number || number->dragging() || !state) return;
    std::string text = number->text();
    if (character == kBackspace) {
        if (!text.empty()) text.pop_back();
    } else if (character > L' ' && character < 127) {
        if (!state->typing) text.clear();
        text += static_cast<char>(character);
    } else {
        return;
    }
    state->typing = true;
    number->type(text);
}

void wheel(HWND window, int movement) {
    const auto number = DSNumberControlOf(window);
    NumberState* const state = stateOf(window);
    if (!number || !state) return;
    const int sum = state->wheelRest + movement;
    state->wheelRest = sum % WHEEL_DELTA;
    if (GetFocus() == window) state->typing = false;
    number->wheel(sum / WHEEL_DELTA, GetFocus() == window, heldKeys());
}

void press(HWND window, int x) {
    SetFocus(window);
    NumberState* const state = stateOf(window);
    if (!state) return;
    state->pressed = true;
    state->pressedAt = x;
    SetCapture(window);
}

void movePointer(HWND window, int x) {
    const auto number = DSNumberControlOf(window);
    NumberState* const state = stateOf(window);
    if (!number || !state || !state->pressed) return;
    const int moved = x - state->pressedAt;
    if (!number->dragging()) {
        if (std::abs(moved) < kDragThreshold) return;
        state->typing = false;
        number->beginDrag();
    }
    number->drag(moved, heldKeys());
}

/// The button goes up, or the system takes the pointer away.
void endPress(HWND window) {
    NumberState* const state = stateOf(window);
    if (!state || !state->pressed) return;
    state->pressed = false;
    if (const auto number = DSNumberControlOf(window)) number->endDrag();
}

void paint(HWND window) {
    const ControlPaint canvas(window);
    const NumberState* const state = stateOf(window);
    const bool enabled = IsWindowEnabled(window) != FALSE;
    const bool selected = enabled && GetFocus() == window && state && !state->typing;
    RECT field = canvas.area();
    DrawEdge(canvas.context(), &field, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    FillRect(canvas.context(), &field, GetSysColorBrush(enabled ? COLOR_WINDOW : COLOR_BTNFACE));
    field.left += kIndent;
    const int ink = selected ? COLOR_HIGHLIGHTTEXT : enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT;
    SetTextColor(canvas.context(), GetSysColor(ink));
    SetBkColor(canvas.context(), GetSysColor(COLOR_HIGHLIGHT));
    SetBkMode(canvas.context(), selected ? OPAQUE : TRANSPARENT);
    wchar_t text[128] = L"";
    const int length = GetWindowTextW(window, text, 128);
    DrawTextW(canvas.context(), text, length, &field, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    if (!state || !state->typing) return;
    SIZE typed{};
    GetTextExtentPoint32W(canvas.context(), text, length, &typed);
    const RECT caret{field.left + typed.cx, field.top + 1, field.left + typed.cx + 1,
                     field.bottom - 1};
    FillRect(canvas.context(), &caret, GetSysColorBrush(COLOR_WINDOWTEXT));
}

/// Enter and Escape belong to the dialog, but for an entry or a drag under way.
LRESULT wantedKeys(HWND window, const MSG* message) {
    constexpr LRESULT kAlways = DLGC_WANTARROWS | DLGC_WANTCHARS;
    const auto number = DSNumberControlOf(window);
    const NumberState* const state = stateOf(window);
    const bool busy = number && (number->dragging() || (state && state->typing));
    const bool ends = message && (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
    return busy && ends ? kAlways | DLGC_WANTMESSAGE : kAlways;
}

bool handleKey(HWND window, WPARAM key) {
    switch (key) {
        case VK_UP:
            return step(window, 1), true;
        case VK_DOWN:
            return step(window, -1), true;
        case VK_RETURN:
            return enter(window), true;
        case VK_ESCAPE:
            return revert(window), true;
        default:
            return false;
    }
}

/// True for a message of the pointer or the keyboard that was handled.
bool handleInput(HWND window, UINT message, WPARAM wide, LPARAM extra) {
    const int x = static_cast<short>(LOWORD(extra));
    switch (message) {
        case WM_KEYDOWN:
            return handleKey(window, wide);
        case WM_CHAR:
            return type(window, static_cast<wchar_t>(wide)), true;
        case WM_MOUSEWHEEL:
            return wheel(window, static_cast<short>(HIWORD(wide))), true;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return press(window, x), true;
        case WM_MOUSEMOVE:
            return movePointer(window, x), true;
        case WM_LBUTTONUP:
            endPress(window);
            if (GetCapture() == window) ReleaseCapture();
            return true;
        case WM_CAPTURECHANGED:
            return endPress(window), true;
        default:
            return false;
    }
}

LRESULT handle(HWND window, UINT message, WPARAM wide, LPARAM extra) {
    if (handleInput(window, message, wide, extra)) return 0;
    NumberState* const state = stateOf(window);
    switch (message) {
        case WM_NCCREATE:
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(new (std::nothrow) NumberState));
            break;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            delete state;
            break;
        case WM_GETDLGCODE:
            return wantedKeys(window, reinterpret_cast<const MSG*>(extra));
        case WM_SETFOCUS:
        case WM_ENABLE:
        case WM_SETTEXT:
            InvalidateRect(window, nullptr, FALSE);
            break;
        case WM_KILLFOCUS:
            enter(window);
            return 0;
        case WM_SETFONT:
            if (state) state->font = reinterpret_cast<HFONT>(wide);
            InvalidateRect(window, nullptr, FALSE);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(state ? state->font : nullptr);
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint(window);
            return 0;
        default:
            break;
    }
    return DefWindowProcW(window, message, wide, extra);
}

/// An edit for which there is no memory does nothing.
LRESULT CALLBACK numberProcedure(HWND window, UINT message, WPARAM wide, LPARAM extra) {
    LRESULT result = 0;
    guarded([&] {
        result = handle(window, message, wide, extra);
        return S_OK;
    });
    return result;
}

}  // namespace

const ControlWindowClass kNumberWindow{L"DSNewNumberCtrl", numberProcedure};

}  // namespace ruvex::controls
