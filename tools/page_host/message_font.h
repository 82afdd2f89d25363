// The font of the program's own windows. Their sizes follow from it, and so from the resolution.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::page_host {

/// The system's font for messages. It lives as long as the program.
HFONT messageFont();

/// Gives a control this font.
void useMessageFont(HWND control);

/// The size of one line of text in pixels.
SIZE textSize(const std::wstring& text);

/// Between the parts of the window, in pixels: half the height of a line.
int gap();

}  // namespace ruvex::page_host
