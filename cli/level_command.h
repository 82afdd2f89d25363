// `ruvex level`: the level of breakup and what it does, frame by frame.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

/// Prints the level, and draws the plot if there is to be one.
Command levelCommand();

}  // namespace ruvex::cli
