// Scripts that let a shell complete what is typed after the command.

#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// For bash; zsh takes the same script after `bashcompinit`. Knows commands, options, the words
/// that an option takes, labels of parameters, and the looks that the command lists at that time;
/// everything else is a file.
std::string bashCompletion(const std::vector<Command>& commands);

/// The same for fish.
std::string fishCompletion(const std::vector<Command>& commands);

}  // namespace ruvex::cli
