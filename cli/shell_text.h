// Command lines as text.

#pragma once

#include <string>
#include <string_view>

#include "cli/command_table.h"

namespace ruvex::cli {

/// The word as a shell reads it back, whatever it holds; in quotation marks only where it needs
/// them. Can be printed on any terminal: a word with control characters becomes $'...' with
/// escapes, which bash, zsh and ksh know.
std::string shellQuoted(std::string_view word);

/// "ruvex NAME ..." with every option of the table that has a value, in the table's order. Typed
/// again, it gives the options the same values.
std::string commandText(std::string_view name, const OptionTable& options);

}  // namespace ruvex::cli
