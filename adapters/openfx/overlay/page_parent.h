// The window in which the plug-in opens a property page that nobody sees.

#pragma once

#include "sdk/window/window.h"

namespace ruvex::openfx {

/// A hidden window of the calling thread, which lives as long as the process; null where pages need
/// none. A page that is shown in it stays hidden.
HWND pageParent();

}  // namespace ruvex::openfx
