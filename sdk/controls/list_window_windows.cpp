// What drop-down lists of the host's dialogs do with the wheel and the keyboard on Windows.

#include <windows.h>

#include "sdk/controls/host_control_windows.h"
#include "sdk/controls/host_controls.h"

namespace ruvex::controls {
namespace {

/// Window properties: the system's procedure of the list, and the mark of a list of commands.
constexpr const wchar_t* kListProcedure = L"DSLISTPROC";
constexpr const wchar_t* kCommandList = L"DSCOMMANDLIST";

bool isOpened(HWND list) {
    return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

/// The wheel is for the list that the user works with, and never chooses a command.
bool takesWheel(HWND list) {
    return isOpened(list) || (GetFocus() == list && !GetPropW(list, kCommandList));
}

/// Whether a message moves the selection of a closed list. With Alt, the arrow keys open it.
bool movesSelection(UINT message, WPARAM wParam) {
    if (message == WM_CHAR) return wParam > L' ';
    return message == WM_KEYDOWN && wParam >= VK_PRIOR && wParam <= VK_DOWN;
}

LRESULT CALLBACK listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto system = reinterpret_cast<WNDPROC>(GetPropW(list, kListProcedure));
    if (message == WM_MOUSEWHEEL && !takesWheel(list)) {
        return DefWindowProcW(list, message, wParam, lParam);
    }
    // The user sees where the selection moves to, and takes a command with Enter.
    if (GetPropW(list, kCommandList) && movesSelection(message, wParam) && !isOpened(list)) {
        SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    }
    if (message == WM_NCDESTROY) {
        RemovePropW(list, kCommandList);
        RemovePropW(list, kListProcedure);
        SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(system));
    }
    return CallWindowProcW(system, list, message, wParam, lParam);
}

}  // namespace

void watchList(HWND combo) {
    if (GetPropW(combo, kListProcedure)) return;
    const LONG_PTR system = GetWindowLongPtrW(combo, GWLP_WNDPROC);
    if (!SetPropW(combo, kListProcedure, reinterpret_cast<HANDLE>(system))) return;
    SetWindowLongPtrW(combo, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(listProcedure));
}

}  // namespace ruvex::controls

void DSMakeCommandList(HWND list) {
    if (list) SetPropW(list, ruvex::controls::kCommandList, list);
}
