// The manual page.

#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// All commands in one page, in the language of the manual's typesetter: what stands in the tables,
/// and nothing that stands there for a second time.
std::string manPage(const std::vector<Command>& commands);

}  // namespace ruvex::cli
