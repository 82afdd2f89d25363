// The values behind frames as columns of text.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "parameters/ruvex_interface.h"

namespace ruvex::cli {

/// One of the values: how it is called, and where it stands in the record.
struct ValueColumn {
    const char* name;     ///< In CSV; programs rely on it.
    const char* heading;  ///< In the table, over the unit.
    const char* unit;
    int decimals;  ///< In the table.
    std::variant<std::int32_t FrameValues::*, float FrameValues::*, double FrameValues::*> member;
};

/// All of them, in the order in which they are shown.
std::span<const ValueColumn> valueColumns();

/// The shortest text that reads back as the same value of the member's own type, with a point
/// whatever the locale.
std::string exactText(const ValueColumn& column, const FrameValues& values);

/// The value with the column's number of decimals.
std::string roundedText(const ValueColumn& column, const FrameValues& values);

/// A line of names, then one a frame, separated by commas.
std::string csvOf(const std::vector<FrameValues>& series);

/// A line of headings, one of units, then one a frame, aligned.
std::string tableOf(const std::vector<FrameValues>& series);

}  // namespace ruvex::cli
