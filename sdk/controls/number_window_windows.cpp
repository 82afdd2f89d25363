// The window of a number control: a field with the number, which the user types, steps with arrow
// keys and the wheel, and drags sideways.

// clang-format off
#include <windows.h>
#include <imm.h>  // needs the names of windows.h
// clang-format on

#include <cstdlib>
#include <new>
#include <string>

#include "sdk/com/guarded.h"
#include "sdk/controls/clipboard_windows.h"
#include "sdk/controls/control_window_windows.h"
#include "sdk/controls/host_controls.h"

namespace ruvex::controls {
namespace {

/// The pointer moves so far, in pixels, before a press becomes a drag.
constexpr int kDragThreshold = 3;
/// Between the field's edge and its text.
constexpr int kIndent = 4;

// Characters of the keyboard.
constexpr wchar_t kCopy = 3;  // Ctrl+C
constexpr wchar_t kBackspace = 8;
constexpr wchar_t kPaste = 22;  // Ctrl+V

/// What a window remembers between messages. The pointer's positions are in pixels of the window.
struct NumberState {
    HFONT font = nullptr;
    bool pressed = false;
    int pressedAt = 0;
    int wheelRemainder = 0;  ///< Movement of the wheel that is no whole notch yet.
};

NumberState* stateOf(HWND window) {
    return reinterpret_cast<NumberState*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

DSStepKeys heldKeys() {
    if (GetKeyState(VK_SHIFT) < 0) return DSStepKeys::Shift;
    return GetKeyState(VK_CONTROL) < 0 ? DSStepKeys::Control : DSStepKeys::None;
}

bool isTyping(HWND window) {
    const auto number = DSNumberControlOf(window);
    return number && number->typing();
}

/// Also where the number stays the same: its marking changes with the focus.
void redraw(HWND window) {
    if (IsWindow(window)) InvalidateRect(window, nullptr, FALSE);
}

void enter(HWND window) {
    if (const auto number = DSNumberControlOf(window)) number->enter();
    redraw(window);
}

void revert(HWND window) {
    if (const auto number = DSNumberControlOf(window)) number->revert();
    if (IsWindow(window) && GetCapture() == window) ReleaseCapture();
    redraw(window);
}

void step(HWND window, int steps) {
    if (const auto number = DSNumberControlOf(window)) number->step(steps, heldKeys());
    redraw(window);
}

bool isPrintable(wchar_t character) {
    return character > L' ' && character < 127;
}

/// The first character replaces the number, a backspace shortens it.
void typeInto(CDSNumberControl& number, wchar_t character) {
    std::string text = number.text();
    if (character == kBackspace) {
        if (!text.empty()) text.pop_back();
    } else {
        if (!number.typing()) text.clear();
        text += static_cast<char>(character);
    }
    number.type(text);
}

void copyText(HWND window) {
    if (const auto number = DSNumberControlOf(window)) copyToClipboard(window, number->text());
}

/// What is pasted replaces the number, as if it had been typed.
void pasteText(HWND window) {
    const auto number = DSNumberControlOf(window);
    if (!number) return;
    std::string text;
    for (const wchar_t character : clipboardText(window)) {
        if (isPrintable(character)) text += static_cast<char>(character);
    }
    if (!text.empty()) number->type(text);
}

void handleCharacter(HWND window, wchar_t character) {
    const auto number = DSNumberControlOf(window);
    if (!number || number->dragging()) return;
    if (character == kCopy) {
        copyText(window);
    } else if (character == kPaste) {
        pasteText(window);
    } else if (character == kBackspace || isPrintable(character)) {
        typeInto(*number, character);
    }
}

/// All of the number is marked until the user types.
void clearText(HWND window) {
    if (const auto number = DSNumberControlOf(window)) number->type("");
}

void wheel(HWND window, int movement) {
    const auto number = DSNumberControlOf(window);
    NumberState* const state = stateOf(window);
    if (!number || !state) return;
    const int sum = state->wheelRemainder + movement;
    state->wheelRemainder = sum % WHEEL_DELTA;
    number->wheel(sum / WHEEL_DELTA, true, heldKeys());
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
    const bool typing = isTyping(window);
    const bool enabled = IsWindowEnabled(window) != FALSE;
    const bool selected = enabled && GetFocus() == window && !typing;
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
    if (!typing) return;
    SIZE typed{};
    GetTextExtentPoint32W(canvas.context(), text, length, &typed);
    const RECT caret{field.left + typed.cx, field.top + 1, field.left + typed.cx + 1,
                     field.bottom - 1};
    FillRect(canvas.context(), &caret, GetSysColorBrush(COLOR_WINDOWTEXT));
}

/// The dialog gets Enter and Escape, except while the user types or drags.
LRESULT wantedKeys(HWND window, const MSG* message) {
    constexpr LRESULT kAlways = DLGC_WANTARROWS | DLGC_WANTCHARS;
    const auto number = DSNumberControlOf(window);
    const bool busy = number && (number->dragging() || number->typing());
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
        case VK_DELETE:
            return clearText(window), true;
        default:
            return false;
    }
}

/// True for a message of the pointer or the keyboard that was handled.
bool handleInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const int x = static_cast<short>(LOWORD(lParam));
    switch (message) {
        case WM_KEYDOWN:
            return handleKey(window, wParam);
        case WM_CHAR:
            return handleCharacter(window, static_cast<wchar_t>(wParam)), true;
        case WM_COPY:
            return copyText(window), true;
        case WM_PASTE:
            return pasteText(window), true;
        case WM_MOUSEWHEEL:
            // Without the focus the wheel scrolls the host's window, if that can be scrolled.
            if (GetFocus() != window) return false;
            return wheel(window, static_cast<short>(HIWORD(wParam))), true;
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

LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (handleInput(window, message, wParam, lParam)) return 0;
    NumberState* const state = stateOf(window);
    switch (message) {
        case WM_NCCREATE:
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(new (std::nothrow) NumberState));
            break;
        case WM_CREATE:
            // Numbers are typed as they are, in every language.
            ImmAssociateContext(window, nullptr);
            break;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            delete state;
            break;
        case WM_GETDLGCODE:
            return wantedKeys(window, reinterpret_cast<const MSG*>(lParam));
        case WM_SETFOCUS:
        case WM_ENABLE:
        case WM_SETTEXT:
            InvalidateRect(window, nullptr, FALSE);
            break;
        case WM_KILLFOCUS:
            enter(window);
            return 0;
        case WM_SETFONT:
            if (state) state->font = reinterpret_cast<HFONT>(wParam);
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
    return DefWindowProcW(window, message, wParam, lParam);
}

/// An edit for which there is no memory does nothing.
LRESULT CALLBACK numberProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    guarded([&] {
        result = handle(window, message, wParam, lParam);
        return S_OK;
    });
    return result;
}

}  // namespace

const ControlWindowClass kNumberWindow{L"DSNewNumberCtrl", numberProcedure};

}  // namespace ruvex::controls
