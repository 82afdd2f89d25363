// `ruvex module`: what the module registers, and registering it.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

Command moduleCommand();

}  // namespace ruvex::cli
