// The window functions that property pages call. On Windows these are the system's own; elsewhere
// they work on a tree of windows in memory (sdk/window/window_tree.h).

#pragma once

#include "sdk/com/com.h"
#include "sdk/com/module_instance.h"

#ifdef _WIN32

#include <shellapi.h>
#include <windows.h>

#else

#include <cstddef>
#include <cstdint>

using HANDLE = void*;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;

struct RECT {
    LONG left, top, right, bottom;
};
struct SIZE {
    LONG cx, cy;
};

/// A window, dialog or control. A handle is never dereferenced and never used again, so that every
/// function below may be called with the handle of a destroyed window or with null; it then does
/// nothing and returns 0. A window can only be used on the thread that created it.
struct DSWindow;
using HWND = DSWindow*;

/// Receives the messages of a dialog; returns TRUE for a message that it has processed.
using DLGPROC = INT_PTR(HWND dialog, UINT message, WPARAM wide, LPARAM extra);

/// A resource number in place of a resource name.
inline const wchar_t* MAKEINTRESOURCEW(std::uint16_t number) {
    return reinterpret_cast<const wchar_t*>(static_cast<std::uintptr_t>(number));
}
constexpr WPARAM MAKEWPARAM(unsigned low, unsigned high) {
    return (high & 0xFFFFu) << 16 | (low & 0xFFFFu);
}
constexpr std::uint16_t LOWORD(WPARAM value) {
    return static_cast<std::uint16_t>(value & 0xFFFFu);
}
constexpr std::uint16_t HIWORD(WPARAM value) {
    return static_cast<std::uint16_t>(value >> 16 & 0xFFFFu);
}

// Arguments of ShowWindow and of IPropertyPage::Show.
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_SHOWNA = 8;
inline constexpr int SW_SHOWDEFAULT = 10;

// Messages.
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT CB_ADDSTRING = 0x0143;
inline constexpr UINT CB_GETCOUNT = 0x0146;
inline constexpr UINT CB_GETCURSEL = 0x0147;
inline constexpr UINT CB_RESETCONTENT = 0x014B;
inline constexpr UINT CB_SETCURSEL = 0x014E;
/// Whether the list is opened. Lists in memory never are.
inline constexpr UINT CB_GETDROPPEDSTATE = 0x0157;
inline constexpr LRESULT CB_ERR = -1;
inline constexpr WPARAM BST_UNCHECKED = 0;
inline constexpr WPARAM BST_CHECKED = 1;

// Notification codes of WM_COMMAND.
inline constexpr std::uint16_t BN_CLICKED = 0;
inline constexpr std::uint16_t CBN_SELCHANGE = 1;
inline constexpr std::uint16_t CBN_CLOSEUP = 8;
inline constexpr std::uint16_t CBN_SELENDOK = 9;
inline constexpr std::uint16_t CBN_SELENDCANCEL = 10;

// Arguments of GetWindow.
inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_CHILD = 5;

// Flags of SetWindowPos.
inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;

// Styles in dialog templates.
inline constexpr std::uint32_t WS_CHILD = 0x40000000;
inline constexpr std::uint32_t WS_VISIBLE = 0x10000000;
inline constexpr std::uint32_t WS_DISABLED = 0x08000000;
inline constexpr std::uint32_t WS_VSCROLL = 0x00200000;
inline constexpr std::uint32_t WS_TABSTOP = 0x00010000;
inline constexpr std::uint32_t DS_SETFONT = 0x40;
inline constexpr std::uint32_t DS_CONTROL = 0x400;
inline constexpr std::uint32_t BS_TYPEMASK = 0xF;
inline constexpr std::uint32_t BS_PUSHBUTTON = 0x0;
inline constexpr std::uint32_t BS_AUTOCHECKBOX = 0x3;
inline constexpr std::uint32_t BS_GROUPBOX = 0x7;
inline constexpr std::uint32_t CBS_DROPDOWNLIST = 0x3;
inline constexpr std::uint32_t SS_BITMAP = 0xE;
inline constexpr std::uint32_t SS_NOPREFIX = 0x80;
inline constexpr std::uint32_t SS_CENTERIMAGE = 0x200;

/// Creates a dialog with its controls from a template in the module's resources, as a child of
/// `parent` (may be null), and sends WM_INITDIALOG with `parameter` to its procedure. Null if there
/// is no such template or no such parent, if a control has another class than button, static and
/// combo box, if memory is exhausted, and if the dialog is destroyed during the call.
DSSDK_API HWND CreateDialogParamW(HINSTANCE module, const wchar_t* templateNumber, HWND parent,
                                  DLGPROC* procedure, LPARAM parameter);
/// Destroys a window and its descendants.
DSSDK_API BOOL DestroyWindow(HWND window);

/// The first child of `dialog` with this identifier.
DSSDK_API HWND GetDlgItem(HWND dialog, int id);
/// GW_CHILD: the first child. GW_HWNDNEXT: the next child of the same parent. Children are in the
/// order of the template.
DSSDK_API HWND GetWindow(HWND window, UINT relation);

/// Sets (any command but SW_HIDE) or clears the show bit of one window. Returns its value before.
DSSDK_API BOOL ShowWindow(HWND window, int command);
/// Returns whether the window was disabled before.
DSSDK_API BOOL EnableWindow(HWND window, BOOL enable);
/// Asks those who show the window, or a part of it, to draw it again. FALSE for null, where the
/// system's function draws the whole desktop again.
DSSDK_API BOOL InvalidateRect(HWND window, const RECT* area, BOOL erase);
/// Moves and resizes a window; coordinates are dialog units of the parent. For a combo box, the
/// height is that of its opened list. Without SWP_NOZORDER the window becomes the first of its
/// siblings (`after` is null) or the one behind `after`; FALSE if that is no sibling.
DSSDK_API BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height,
                            UINT flags);
/// Copies the text, of a drop-down list that of the selected item, truncated if necessary. Returns
/// the number of characters without the zero.
DSSDK_API int GetWindowTextW(HWND window, wchar_t* text, int size);

/// Sends one of the messages above. A dialog's procedure receives all of its messages. A combo box
/// answers CB_ERR to what it can't do: among others, to WM_SETTEXT if it is a drop-down list, and
/// to an index without an item, which ends the selection (elsewhere only -1 is sure to do that). No
/// message that a program sends causes a notification.
DSSDK_API LRESULT SendMessageW(HWND window, UINT message, WPARAM wide, LPARAM extra);

/// Named handles that are attached to a window. The window does not own them. Capital and small
/// letters of names are the same.
DSSDK_API HANDLE GetPropW(HWND window, const wchar_t* name);
DSSDK_API BOOL SetPropW(HWND window, const wchar_t* name, HANDLE value);
DSSDK_API HANDLE RemovePropW(HWND window, const wchar_t* name);

/// Passes a file to the program that opens it: here, to the host that has called DSUseShell.
/// Returns a value above 32 if there is one, else the system's code for "no association".
DSSDK_API HINSTANCE ShellExecuteW(HWND window, const wchar_t* verb, const wchar_t* file,
                                  const wchar_t* arguments, const wchar_t* folder, int command);

/// Formats at most 1024 characters, the zero included. `text` has room for as many. Types: d, i, u,
/// x, X (32 bits), c, s (both wide), with the flags -, 0 and #, a width and a precision. Returns
/// the number of characters without the zero.
DSSDK_API int wsprintfW(wchar_t* text, const wchar_t* format, ...);

#endif
