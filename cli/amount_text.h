// Amounts as people read them.

#pragma once

#include <cstdint>
#include <string>

namespace ruvex::cli {

/// "12.3".
std::string oneDecimal(double value);

/// "7 s", "2 min 05 s", "1 h 02 min"; rounded.
std::string durationText(double seconds);

/// "512 bytes", "45.2 MB": units of 1000, one decimal.
std::string bytesText(std::uintmax_t bytes);

}  // namespace ruvex::cli
