// The title of the group box around a control.

#pragma once

#include <string>

#include "sdk/window/window.h"

/// The text of the first group box of the control's dialog that encloses the control; empty if
/// there is none.
std::wstring DSGroupTitle(HWND control);
