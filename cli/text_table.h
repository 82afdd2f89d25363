// Columns for people.

#pragma once

#include <string>
#include <vector>

namespace ruvex::cli {

using TextRow = std::vector<std::string>;

enum class Align { Left, Right };

/// The rows as lines, each column as wide as its widest cell, two spaces between columns, no space
/// at a line's end. Rows have the same number of cells. Cells are aligned to the right unless
/// another side is named; a width is counted in bytes.
std::string alignedTable(const std::vector<TextRow>& rows, Align side = Align::Right);

}  // namespace ruvex::cli
