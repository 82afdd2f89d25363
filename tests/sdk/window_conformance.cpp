// Prints what the window functions do, one line for each statement.

#include <cstdio>

#include "tests/sdk/window_statements.h"

int main() {
    const auto statements = ruvex::test::observeWindows(ruvex::test::conformanceModule());
    for (const auto& statement : statements) {
        std::printf("%s: %s\n", statement.name.c_str(), statement.seen.c_str());
    }
    std::printf("end: %d statements\n", static_cast<int>(statements.size()));
}
