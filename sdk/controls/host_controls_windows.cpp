// The windows of the host's controls on Windows.

// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include <cwchar>
#include <new>
#include <string>

#include "sdk/com/guarded.h"
#include "sdk/com/utf8.h"
#include "sdk/controls/control_window_windows.h"
#include "sdk/controls/host_control_windows.h"
#include "sdk/controls/host_controls.h"

namespace ruvex::controls {
namespace {

/// The property of a dialog that holds the window of its tool-tips.
constexpr const wchar_t* kToolTips = L"DSTOOLTIPS";

bool hasClass(HWND window, const wchar_t* name) {
    constexpr int kLongestName = 64;
    wchar_t text[kLongestName] = L"";
    GetClassNameW(window, text, kLongestName);
    return _wcsicmp(text, name) == 0;
}

void setText(HWND window, const std::string& text) {
    guarded([&] {
        SetWindowTextW(window, fromUtf8(text).c_str());
        return S_OK;
    });
}

/// The window of a dialog's tool-tips, created at the first call. Null if that fails.
HWND toolTipsOf(HWND dialog) {
    if (const HANDLE known = GetPropW(dialog, kToolTips)) return static_cast<HWND>(known);
    const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    const HWND tips =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                        WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, nullptr, nullptr);
    if (tips) SetPropW(dialog, kToolTips, tips);
    return tips;
}

}  // namespace

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

void releaseToolTips(HWND dialog) {
    if (const HANDLE tips = RemovePropW(dialog, kToolTips)) DestroyWindow(static_cast<HWND>(tips));
}

}  // namespace ruvex::controls

void DSSetToolTip(HWND dialog, HWND control, const wchar_t* text) {
    const HWND tips = control ? ruvex::controls::toolTipsOf(dialog) : nullptr;
    if (!tips) return;
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    SendMessageW(tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    tool.lpszText = const_cast<wchar_t*>(text);
    if (text) SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}
