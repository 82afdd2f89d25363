// Text of the system's clipboard.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::controls {

/// Both do nothing if another program has the clipboard open. `window` belongs to the caller.
void copyToClipboard(HWND window, const std::string& text);
std::wstring clipboardText(HWND window);

}  // namespace ruvex::controls
