// `ruvex params`: the table of parameters.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

/// Prints one line a parameter, or a JSON array of objects.
Command paramsCommand();

}  // namespace ruvex::cli
