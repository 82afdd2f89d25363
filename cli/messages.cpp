#include "cli/messages.h"

#include <cstdio>
#include <iostream>

namespace ruvex::cli {

void printWarnings(const std::vector<std::string>& warnings) {
    for (const std::string& warning : warnings) {
        std::fprintf(stderr, "ruvex: warning: %s\n", warning.c_str());
    }
}

int finishOutput() {
    std::cout.flush();
    if (!std::cout) {
        std::fputs("ruvex: the list could not be written. The disk may be full.\n", stderr);
        return 1;
    }
    return 0;
}

}  // namespace ruvex::cli
