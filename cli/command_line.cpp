#include "cli/command_line.h"

#include <iostream>
#include <string>
#include <vector>

#include "cli/command_parser.h"
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/failure_report.h"
#include "cli/messages.h"
#include "cli/slips.h"
#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

int complain(const char* sentence, int status) {
    printMessage(sentence);
    return status;
}

int print(const std::string& text) {
    std::cout << text;
    return finishOutput();
}

/// A refusal of values that the parser had taken, with what was probably meant.
int complainOf(const UsageError& error, int argc, const char* const* argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::string meant = meantInstead(commands(), words);
    complain(error.what(), kWrongCommandLine);
    return meant.empty() ? kWrongCommandLine : complain(meant.c_str(), kWrongCommandLine);
}

int parseAndRun(int argc, const char* const* argv) {
    ParsedLine line;
    try {
        line = parseCommandLine(commands(), argc, argv);
    } catch (const UsageError& error) {
        complain(error.what(), kWrongCommandLine);
        return complain("'ruvex --help' says more, and so does --help after a command.",
                        kWrongCommandLine);
    }
    return line.command ? line.command->run() : print(line.text);
}

}  // namespace

int runCommandLine(int argc, const char* const* argv) {
    return statusOf([&] {
        try {
            return parseAndRun(argc, argv);
        } catch (const UsageError& error) {
            return complainOf(error, argc, argv);
        }
    });
}

}  // namespace ruvex::cli
