// What a shell makes of a line that shellQuoted wrote, read plainly.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ruvex::fuzz {

/// The words of the line. Ends the program where a shell would see more in it than words: an
/// expansion, an operator, a pattern, a comment, a quotation that does not end.
std::vector<std::string> shellWords(std::string_view line);

}  // namespace ruvex::fuzz
