// One value of one octave of gradient noise.

#pragma once

#include <cstdint>

#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {

inline constexpr std::int32_t kGradientEntries = 1024;

/// The noise at x from a table of kGradientEntries gradients; 0 at whole numbers. For a negative
/// whole x the cell below is used, at whose end the value is 0 too. Always inline, because sources
/// compiled for one instruction set use it: the linker must not take their copy for all.
[[gnu::always_inline]] inline float gradientNoise(const float* gradients, float x) {
    constexpr std::uint32_t kCellStep = 275;  // table entries from one cell's gradient to the next
    constexpr std::uint32_t kMask = kGradientEntries - 1;
    // f is the position in the cell. p and q are the slopes from its two ends, blended by the
    // smoothstep s = 3f^2 - 2f^3.
    const std::int32_t whole = truncateToInt(x);
    const std::int32_t cell = x < 0.0f ? wrapSubtract(whole, 1) : whole;
    const float f = x - static_cast<float>(cell);
    const std::uint32_t c = static_cast<std::uint32_t>(cell) * kCellStep;
    const float p = f * gradients[c & kMask];
    const float q = (f - 1.0f) * gradients[(c + kCellStep) & kMask];
    const float s = (3.0f - 2.0f * f) * f * f;
    return (q - p) * s + p;
}

}  // namespace ruvex
