// 32-bit integer arithmetic that is defined for all operands: it wraps or saturates.

#pragma once

#include <cstdint>
#include <limits>

namespace ruvex {

/// a - b, modulo 2 to the 32.
[[gnu::always_inline]] constexpr std::int32_t wrapSubtract(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

/// a + b, modulo 2 to the 32.
constexpr std::int32_t wrapAdd(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

/// a * b, modulo 2 to the 32.
constexpr std::int32_t wrapMultiply(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

/// A 64-bit value clamped to the range of 32 bits.
constexpr std::int32_t saturate(std::int64_t value) {
    constexpr std::int64_t low = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t high = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(value < low ? low : value > high ? high : value);
}

}  // namespace ruvex
