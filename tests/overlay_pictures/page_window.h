// What the crop states need of the system's windows.

#pragma once

#include "sdk/window/window.h"

namespace ruvex::test {

/// The window in which pages are opened; null where they need none. It lives to the end of the
/// process.
HWND parentOfPages();

/// Clicks a button or a box, as a user does.
void clickButton(HWND button);

}  // namespace ruvex::test
