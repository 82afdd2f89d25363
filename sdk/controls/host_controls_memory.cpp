// The windows of the host's controls in memory.

#include "sdk/com/utf8.h"
#include "sdk/controls/host_control_windows.h"
#include "sdk/controls/host_controls.h"
#include "sdk/window/window_tree.h"

namespace ruvex::controls {
namespace {

/// Heights in dialog units.
constexpr int kClosedListHeight = 12, kListItemHeight = 8, kListBorders = 2;

}  // namespace

bool isStatic(HWND window) {
    const DSWindowState* const state = DSGetWindowState(window);
    return state && state->className == "static";
}

bool isDropDown(HWND window) {
    constexpr std::uint32_t kDropDownBit = 2;  // of CBS_DROPDOWN and CBS_DROPDOWNLIST
    const DSWindowState* const state = DSGetWindowState(window);
    return state && state->className == "combobox" && (state->style & kDropDownBit) != 0;
}

HWND replaceByControl(HWND window, const DSControlTitle&) {
    return window;
}

void becomeControl(HWND window, const DSControlTitle& title) {
    const bool number = title.kind == DSControlTitle::Class::Number;
    DSSetWindowClass(window, number ? "dsnewnumberctrl" : "dsnewcolorchipctrl");
    const std::wstring label = fromUtf8(title.label);
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(label.c_str()));
}

void showNumber(HWND window, const CDSNumberControl&) {
    DSTouchWindow(window);
}

void showColour(HWND window, const CDSColourChip&) {
    DSTouchWindow(window);
}

void resizeList(HWND combo, int items) {
    const DSWindowState* const state = DSGetWindowState(combo);
    if (!state) return;
    const int height = kClosedListHeight + items * kListItemHeight + kListBorders;
    SetWindowPos(combo, nullptr, 0, 0, state->rect.width, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void watchList(HWND) {}

void releaseToolTips(HWND) {}

}  // namespace ruvex::controls

void DSMakeCommandList(HWND) {}

void DSSetToolTip(HWND, HWND control, const wchar_t* text) {
    DSSetWindowTip(control, text);
}
