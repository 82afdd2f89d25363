// The rate of a clip, as text.

#pragma once

#include <optional>
#include <string_view>

namespace ruvex::frei0r {

/// Frames per second in a text: "25", "29.97" or "30000/1001", from 0.01 to 100000. No value for
/// anything else. 23.976, 29.97 and 59.94 (with any further decimals) are the rates of NTSC that
/// they stand for, such as 30000/1001.
std::optional<double> frameRateIn(std::string_view text);

}  // namespace ruvex::frei0r
