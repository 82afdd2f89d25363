// What an axis reads at any index, worked out one index at a time.

#pragma once

#include <cstdint>

#include "imaging/tex_axis.h"

namespace ruvex::twin {

inline constexpr std::int64_t kNothing = -1;

/// The remainder that is never negative.
inline std::int64_t modulo(std::int64_t a, std::int64_t n) {
    return ((a % n) + n) % n;
}

/// The buffer index that stands at `index` when the valid range goes on for ever, or kNothing.
inline std::int64_t indexTwin(const TexAxis& axis, std::int64_t index) {
    const std::int64_t low = axis.lo;
    const std::int64_t high = axis.hi;
    if (high < low) return kNothing;
    if (index >= low && index <= high) return index;
    const std::int64_t n = high - low + 1;
    if (axis.edgeMethod == 1) return index < low ? low : high;
    if (axis.edgeMethod == 2) {
        // There and back again, each edge pixel twice.
        const std::int64_t there = modulo(index - low, 2 * n);
        return low + (there < n ? there : 2 * n - 1 - there);
    }
    if (axis.edgeMethod == 3) return low + modulo(index - low, n);
    return kNothing;
}

struct PairTwin {
    std::int64_t first, second;
    bool neighbours;
};

inline PairTwin pairTwin(const TexAxis& axis, std::int64_t index) {
    const std::int64_t first = indexTwin(axis, index);
    const std::int64_t second = indexTwin(axis, index + 1);
    return {first, second, first != kNothing && second == first + 1};
}

struct RunTwin {
    std::int64_t index, step, length;
};

/// The run at a coordinate, row by row of the table of runs; `d` has the origin taken off.
inline RunTwin runTwin(const TexAxis& axis, std::int64_t d) {
    constexpr std::int64_t kForEver = 2147483647;
    const std::int64_t low = axis.lo, high = axis.hi, n = high - low + 1, e = d - low;
    if (d >= low && d <= high) return {d, 1, high - d + 1};
    if (n < 1) return {kNothing, 0, kForEver};
    if (d < low) {
        const std::int64_t before = -e - 1;
        const std::int64_t r = before % n;
        const std::int64_t w = (e + 1) % n + n - 1;
        if (axis.edgeMethod == 1) return {low, 0, low - d};
        if (axis.edgeMethod == 2 && before / n % 2 == 0) return {low + r, -1, r + 1};
        if (axis.edgeMethod == 2 || axis.edgeMethod == 3) return {low + w, 1, n - w};
        return {kNothing, 0, low - d};
    }
    const std::int64_t r = e % n;
    if (axis.edgeMethod == 1) return {high, 0, kForEver};
    if (axis.edgeMethod == 2 && e / n % 2 == 1) return {low + n - r - 1, -1, n - r};
    if (axis.edgeMethod == 2 || axis.edgeMethod == 3) return {low + r, 1, n - r};
    return {kNothing, 0, kForEver};
}

/// Subtraction of 32-bit integers, which wraps.
inline std::int32_t minus(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

}  // namespace ruvex::twin
