// Common slips on a command line: forgotten quotation marks, typing errors, a missing -o.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// What was probably meant by words that were refused, the program's name left out: sentences such
/// as "A value with spaces has to be in quotation marks. Did you mean: ruvex render ...". Empty if
/// none of the known slips is found. Looks whether files exist, and reads none.
std::string meantInstead(const std::vector<Command>& commands, std::span<const std::string> words);

}  // namespace ruvex::cli
