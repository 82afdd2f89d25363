// Sizes of the project frame in whole units.

#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace ruvex {

/// Truncates a size to whole units; 0 for one that is not finite or beyond 32 bits.
inline std::int32_t wholeUnits(double size) {
    constexpr double kLimit = std::numeric_limits<std::int32_t>::max();
    return std::fabs(size) <= kLimit ? static_cast<std::int32_t>(size) : 0;
}

}  // namespace ruvex
