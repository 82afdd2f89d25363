// The help of the program and of each command: a short form (-h) and a long one (--help).

#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// Short: the first clause of each option's help. Long: all that the table says, the notes, the
/// examples and the exit statuses.
enum class HelpLength { Short, Long };

/// Lines of at most 80 characters, but for words, notes and examples that are longer.
std::string programHelp(const std::vector<Command>& commands, HelpLength length);
std::string commandHelp(const Command& command, HelpLength length);

/// Of the commands whose names begin with the word `family`.
std::string familyHelp(const std::vector<Command>& commands, const std::string& family,
                       HelpLength length);

}  // namespace ruvex::cli
