// The windows of the host's controls on Windows.

#include <new>
#include <string>
#include <windows.h>

#include "sdk/com/guarded.h"
#include "sdk/com/utf8.h"
#include "sdk/controls/control_window_windows.h"
#include "sdk/controls/host_control_windows.h"
#include "sdk/controls/host_controls.h"
#include "sdk/controls/tool_tips_windows.h"
#include "sdk/controls/window_class_windows.h"

namespace ruvex::controls {
namespace {

void setText(HWND window, const std::string& text) {
    guarded([&] {
        SetWindowTextW(window, fromUtf8(text).c_str());
        return S_OK;
    });
}

}  // namespace

bool hasClass(HWND window, const wchar_t* name) {
    constexpr int kLongestName = 64;
    wchar_t text[kLongestName] = L"";
    GetClassNameW(window, text, kLongestName);
    return lstrcmpiW(text, name) == 0;
}

bool isStatic(HWND window) {
    return hasClass(window, L"Static");
}

bool isDropDown(HWND window) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    return hasClass(window, L"ComboBox") && (style & CBS_DROPDOWN) != 0;
}

HWND replaceByControl(HWND window, const DSControlTitle& title) {
    const bool number = title.kind == DSControlTitle::Class::Number;
    const HWND control = replaceStatic(window, number ? kNumberWindow : kChipWindow);
    if (!control) throw std::bad_alloc();
    return control;
}

void becomeControl(HWND window, const DSControlTitle& title) {
    const bool number = title.kind == DSControlTitle::Class::Number;
    if (number) setText(window, CDSNumberControl::textOf(0.0, 0));
}

void showNumber(HWND window, const CDSNumberControl& number) {
    setText(window, number.text());
    guarded([&] {
        if (IsWindow(window)) setTipRemark(window, number.remark());
        return S_OK;
    });
}

void showColour(HWND window, const CDSColourChip&) {
    InvalidateRect(window, nullptr, TRUE);
}

void resizeList(HWND combo, int items) {
    constexpr int kListBorders = 2;
    RECT closed{};
    GetWindowRect(combo, &closed);
    const auto itemHeight = static_cast<int>(SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
    const int height = closed.bottom - closed.top + items * itemHeight + kListBorders;
    SetWindowPos(combo, nullptr, 0, 0, closed.right - closed.left, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace ruvex::controls
