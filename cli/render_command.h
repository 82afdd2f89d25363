// `ruvex render`: a clip through the effect.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

Command renderCommand();

}  // namespace ruvex::cli
