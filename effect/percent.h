// Percentages of parameters as the render reads them.

#pragma once

namespace ruvex {

/// The percent factor of the whole render: the single-precision value of 0.01 widened to double.
/// Pictures depend on its last bits.
inline constexpr double kPercent = 0.01f;

/// A percentage as a fraction in single precision: 100 is exactly 1.
constexpr float fractionOf(double percent) {
    return static_cast<float>(percent * kPercent);
}

}  // namespace ruvex
