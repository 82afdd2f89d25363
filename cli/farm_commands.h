// `ruvex farm`: a render over many machines, through a scheduler.

#pragma once

#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// submit, status, resume, cancel, plan, task and join.
std::vector<Command> farmCommands();

Command farmSubmitCommand();
Command farmStatusCommand();
Command farmTaskCommand();
Command farmJoinCommand();

}  // namespace ruvex::cli
