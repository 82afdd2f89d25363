// The class of a window.

#pragma once

#include <windows.h>

namespace ruvex::controls {

/// Whether a window has a class of this name, in capital or small letters.
bool hasClass(HWND window, const wchar_t* name);

}  // namespace ruvex::controls
