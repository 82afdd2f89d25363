// The windows in memory, for those who show them, drive them or test them. Not on Windows.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "sdk/window/window.h"

#ifndef _WIN32

/// A rectangle in dialog units of the parent.
struct DSDialogRect {
    int x = 0, y = 0, width = 0, height = 0;

    friend bool operator==(const DSDialogRect&, const DSDialogRect&) = default;
};

/// The state of one window. Class names are in lower case: "static", "button", "combobox",
/// "dsnewnumberctrl", "dsnewcolorchipctrl"; "#32770" for a dialog.
struct DSWindowState {
    HWND parent = nullptr;
    std::vector<HWND> children;  ///< in the order of the template
    std::string className;
    int id = 0;
    std::uint32_t style = 0;  ///< as in the template; WS_VISIBLE and WS_DISABLED are current
    DSDialogRect rect;
    int listHeight = 0;  ///< of a combo box: the height of its opened list, in dialog units
    std::wstring text;
    int bitmap = 0;  ///< of a static with SS_BITMAP: the number of its resource
    std::vector<std::wstring> items;
    int selection = -1;
    bool checked = false;
    std::wstring tip;
    std::map<std::wstring, HANDLE> properties;

    bool shown() const { return (style & WS_VISIBLE) != 0; }
    bool enabled() const { return (style & WS_DISABLED) == 0; }
};

/// The state of a window, valid until the window is destroyed; null for null and for a destroyed
/// window.
DSSDK_API const DSWindowState* DSGetWindowState(HWND window);

/// What has happened to a window.
enum class DSWindowChange { Created, Changed, Destroyed };

/// Called after each change of a window on the calling thread, attached properties excepted. An
/// empty function ends that. Returns the previous observer. The observer may change and destroy any
/// window and may replace itself; it must not throw. Children are destroyed before their parents,
/// and created after them. Where memory runs out during a creation, windows are destroyed of whose
/// creation nobody has heard.
using DSWindowObserver = std::function<void(HWND window, DSWindowChange change)>;
DSSDK_API DSWindowObserver DSObserveWindows(DSWindowObserver observer);

/// What a user does, with the notifications that follow: WM_COMMAND to the dialog. A click toggles
/// an automatic check box first. False, without an effect, if the window is not of that kind (a
/// group box can't be clicked), disabled or not shown (itself or one of its ancestors), or has no
/// such item.
DSSDK_API bool DSClickButton(HWND button);
DSSDK_API bool DSChooseItem(HWND combo, int item);

/// The next control that the Tab key leads to from `control` (null: the first), or the previous one
/// with `back`; wraps around. Null if the dialog has no tab stop.
DSSDK_API HWND DSNextTabStop(HWND dialog, HWND control, bool back = false);

/// The receiver of ShellExecuteW's files on the calling thread; returns whether it opens the file.
/// Returns the previous receiver.
using DSShell = std::function<bool(const std::wstring& file)>;
DSSDK_API DSShell DSUseShell(DSShell shell);

/// For the host's controls: replaces the class of a window, sets its tool-tip, and reports a change
/// of a window's model to the observers.
DSSDK_API void DSSetWindowClass(HWND window, const char* className);
DSSDK_API void DSSetWindowTip(HWND window, const wchar_t* tip);
DSSDK_API void DSTouchWindow(HWND window);

#endif
