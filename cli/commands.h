// All commands there are.

#pragma once

#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// In the order of the help. Made once; a command's values are those of the last command line.
const std::vector<Command>& commands();

/// The same, with values of their own that nothing was typed for yet.
std::vector<Command> newCommands();

}  // namespace ruvex::cli
