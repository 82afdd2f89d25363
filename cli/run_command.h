// `ruvex run`: a job that was saved.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

Command runCommand();

}  // namespace ruvex::cli
