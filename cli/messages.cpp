#include "cli/messages.h"

#include <cstdio>
#include <iostream>

#include "cli/exit_status.h"
#include "files/words.h"

namespace ruvex::cli {

void printMessage(std::string_view sentence) {
    std::fprintf(stderr, "ruvex: %s\n", files::printable(sentence).c_str());
}

void printWarnings(const std::vector<std::string>& warnings) {
    for (const std::string& warning : warnings) {
        printMessage("warning: " + warning);
    }
}

int reportStop(const std::filesystem::path& result) {
    const std::string name = result == "-" ? "standard output" : result.string();
    printMessage("stopped; " + name + " is not complete.");
    return kStopped;
}

int finishOutput() {
    std::cout.flush();
    if (!std::cout) {
        printMessage("the list could not be written. The disk may be full.");
        return kFailed;
    }
    return 0;
}

}  // namespace ruvex::cli
