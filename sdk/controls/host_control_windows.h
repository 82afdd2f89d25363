// What the host's controls need of their windows, which differs between Windows and windows in
// memory: host_controls_windows.cpp and host_controls_memory.cpp.

#pragma once

#include "sdk/controls/colour_chip.h"
#include "sdk/controls/control_title.h"
#include "sdk/controls/number_control.h"
#include "sdk/window/window.h"

namespace ruvex::controls {

bool isStatic(HWND window);
/// Whether a window is a combo box with a list that drops down.
bool isDropDown(HWND window);

/// Replaces a static by the window of a control with the same identifier, place and order, where
/// the system has window classes. Returns the control's window. Throws std::bad_alloc.
HWND replaceByControl(HWND window, const DSControlTitle& title);

/// Gives the control's window, whose model is attached, its class and its first text. Observers of
/// windows may destroy the dialog. Throws std::bad_alloc.
void becomeControl(HWND window, const DSControlTitle& title);

/// Shows the state of a model after a change.
void showNumber(HWND window, const CDSNumberControl& number);
void showColour(HWND window, const CDSColourChip& chip);

/// Makes a list take the wheel only while it has the focus.
void watchList(HWND combo);

/// Makes the opened list high enough for so many items.
void resizeList(HWND combo, int items);

/// Destroys what DSSetToolTip has created for a dialog.
void releaseToolTips(HWND dialog);

}  // namespace ruvex::controls
