// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include "sdk/controls/tool_tips_windows.h"

#include "sdk/com/utf8.h"
#include "sdk/controls/host_control_windows.h"
#include "sdk/controls/host_controls.h"

namespace ruvex::controls {
namespace {

/// The property of a dialog that holds the window of its tool-tips.
constexpr const wchar_t* kToolTips = L"DSTOOLTIPS";
/// The property of a control whose tip begins with a remark, a line of its own.
constexpr const wchar_t* kRemark = L"DSTIPREMARK";

/// A longer text goes on in another line.
void limitWidth(HWND dialog, HWND tips) {
    constexpr int kUnits = 180;
    RECT width{0, 0, kUnits, 0};
    MapDialogRect(dialog, &width);
    SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, width.right);
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
    if (!tips) return nullptr;
    SetPropW(dialog, kToolTips, tips);
    limitWidth(dialog, tips);
    return tips;
}

TOOLINFOW toolOf(HWND dialog, HWND control) {
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

/// The text of a tip; empty if there is none.
std::wstring tipOf(HWND tips, TOOLINFOW tool) {
    constexpr std::size_t kLongestTip = 1024;
    wchar_t text[kLongestTip] = L"";
    tool.lpszText = text;
    SendMessageW(tips, TTM_GETTEXTW, kLongestTip, reinterpret_cast<LPARAM>(&tool));
    return text;
}

}  // namespace

void setTipRemark(HWND control, const std::string& remark) {
    const bool hasRemark = RemovePropW(control, kRemark) != nullptr;
    if (!hasRemark && remark.empty()) return;
    const HWND dialog = GetParent(control);
    const HWND tips = toolTipsOf(dialog);
    std::wstring text = tips ? tipOf(tips, toolOf(dialog, control)) : std::wstring();
    if (hasRemark) text.erase(0, text.find(L'\n') + 1);
    if (!remark.empty()) {
        text = fromUtf8(remark) + L'\n' + text;
        SetPropW(control, kRemark, control);
    }
    DSSetToolTip(dialog, control, text.empty() ? nullptr : text.c_str());
}

void releaseToolTips(HWND dialog) {
    if (const HANDLE tips = RemovePropW(dialog, kToolTips)) DestroyWindow(static_cast<HWND>(tips));
}

}  // namespace ruvex::controls

void DSSetToolTip(HWND dialog, HWND control, const wchar_t* text) {
    const HWND tips = control ? ruvex::controls::toolTipsOf(dialog) : nullptr;
    if (!tips) return;
    TOOLINFOW tool = ruvex::controls::toolOf(dialog, control);
    SendMessageW(tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    tool.lpszText = const_cast<wchar_t*>(text);
    if (text) SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}
