// Columns of numbers for people.

#pragma once

#include <string>
#include <vector>

namespace ruvex::cli {

using TextRow = std::vector<std::string>;

/// The rows as lines, each column as wide as its widest cell and aligned to the right, two spaces
/// between columns, no space at a line's end. Rows have the same number of cells.
std::string alignedTable(const std::vector<TextRow>& rows);

}  // namespace ruvex::cli
