#include "sdk/controls/group_title.h"
#include "sdk/controls/window_class_windows.h"

namespace {

constexpr int kMostText = 256;

bool isGroupBox(HWND window) {
    return ruvex::controls::hasClass(window, L"Button") &&
           (GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

bool encloses(HWND outer, HWND inner) {
    RECT around{}, within{}, common{};
    GetWindowRect(outer, &around);
    GetWindowRect(inner, &within);
    IntersectRect(&common, &around, &within);
    return EqualRect(&common, &within) != FALSE;
}

}  // namespace

std::wstring DSGroupTitle(HWND control) {
    wchar_t text[kMostText] = {};
    HWND sibling = control ? GetWindow(control, GW_HWNDFIRST) : nullptr;
    for (; sibling; sibling = GetWindow(sibling, GW_HWNDNEXT)) {
        if (!isGroupBox(sibling) || !encloses(sibling, control)) continue;
        GetWindowTextW(sibling, text, kMostText);
        break;
    }
    return text;
}
