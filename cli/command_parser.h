// From the words of a command line to the command that is meant.

#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// What a command line comes to: a command, whose options hold what was typed, or a text to print.
struct ParsedLine {
    const Command* command = nullptr;  ///< One of those that were to choose from; null for a text.
    std::string text;                  ///< The help or the version that was asked for.
};

/// Reads the words; the first is the program's own name. Runs nothing and opens nothing. Throws
/// UsageError for what is none of the `commands`, or not as its table says.
ParsedLine parseCommandLine(const std::vector<Command>& commands, int argc,
                            const char* const* argv);

/// What --help prints after the command `name`, or after the first word of several commands; of the
/// whole program where that is empty. Throws UsageError for a name that is no command's.
std::string helpText(const std::vector<Command>& commands, const std::string& name);

}  // namespace ruvex::cli
