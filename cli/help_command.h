// `ruvex help`: what the command tells of itself.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

Command helpCommand();

}  // namespace ruvex::cli
