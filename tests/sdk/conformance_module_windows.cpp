// The program's own resources.

#include "tests/sdk/window_statements.h"

HINSTANCE ruvex::test::conformanceModule() {
    return GetModuleHandleW(nullptr);
}
