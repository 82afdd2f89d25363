// Conversion of percentages, as the render does it.

#pragma once

namespace ruvex {

/// The factor from percent to a fraction: 0.01 as a float, converted to double. Pictures depend on
/// its last bits.
inline constexpr double kPercent = 0.01f;

/// A percentage as a fraction in single precision: 100 is exactly 1.
constexpr float fractionOf(double percent) {
    return static_cast<float>(percent * kPercent);
}

}  // namespace ruvex
