#include "cli/messages.h"

#include <cstdio>
#include <iostream>

#include "cli/exit_status.h"

namespace ruvex::cli {

void printWarnings(const std::vector<std::string>& warnings) {
    for (const std::string& warning : warnings) {
        std::fprintf(stderr, "ruvex: warning: %s\n", warning.c_str());
    }
}

int reportStop(const std::filesystem::path& result) {
    std::fprintf(stderr, "ruvex: stopped; %s is not complete.\n", result.string().c_str());
    return kStopped;
}

int finishOutput() {
    std::cout.flush();
    if (!std::cout) {
        std::fputs("ruvex: the list could not be written. The disk may be full.\n", stderr);
        return kFailed;
    }
    return 0;
}

}  // namespace ruvex::cli
