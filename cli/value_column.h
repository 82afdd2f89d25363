// The values behind frames as columns of text.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "parameters/ruvex_interface.h"

namespace ruvex::cli {

/// One of the values: its names, and its member in the record.
struct ValueColumn {
    std::string_view name;     ///< In CSV; programs rely on it.
    std::string_view heading;  ///< In the table, over the unit.
    std::string_view unit;
    int decimals;  ///< In the table.
    std::variant<std::int32_t FrameValues::*, float FrameValues::*, double FrameValues::*> member;
};

/// All columns in their order; those of the artefacts follow the table of artefacts.
std::span<const ValueColumn> valueColumns();

/// The shortest text that reads back as the same value of the member's own type. Does not depend on
/// the locale.
std::string exactText(const ValueColumn& column, const FrameValues& values);

/// The value with the column's number of decimals.
std::string roundedText(const ValueColumn& column, const FrameValues& values);

/// A line of names, then one a frame, separated by commas.
std::string csvOf(const std::vector<FrameValues>& series);

/// A line of headings, one of units, then one a frame, aligned.
std::string tableOf(const std::vector<FrameValues>& series);

}  // namespace ruvex::cli
