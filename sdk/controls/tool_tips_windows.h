// The tool-tips of the host's dialogs on Windows.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::controls {

/// Shows in the control's tip, before its text, why the host has changed what the user entered.
/// Empty: the text alone. Throws std::bad_alloc.
void setTipRemark(HWND control, const std::string& remark);

}  // namespace ruvex::controls
