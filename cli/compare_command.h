// `ruvex compare`: a clip before and after the effect, in one clip.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

Command compareCommand();

}  // namespace ruvex::cli
