// `ruvex presets`: the looks of the library.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

/// Lists the looks, draws a sheet of them, or saves them as files.
Command presetsCommand();

}  // namespace ruvex::cli
