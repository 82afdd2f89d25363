// What the window functions do, observed step by step. The same source runs on the system's own
// windows and on those in memory.

#pragma once

#include <string>
#include <vector>

#include "sdk/window/window.h"

namespace ruvex::test {

/// One observation: what was done, and a number or a text in quotation marks that was seen.
struct WindowStatement {
    std::string name;
    std::string seen;
};

/// The module that contains the resources of conformance.rc. Exists as long as the program.
HINSTANCE conformanceModule();

/// Performs all steps in their order.
std::vector<WindowStatement> observeWindows(HINSTANCE module);

}  // namespace ruvex::test
