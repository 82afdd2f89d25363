// One value of one octave of gradient noise.

#pragma once

#include <cstdint>

#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {

inline constexpr std::int32_t kGradientEntries = 1024;

/// The noise at x from a table of kGradientEntries gradients. An exact negative whole number is
/// taken one cell too low, where the curve meets itself. Always inline, like all that sources for
/// one processor alone use.
[[gnu::always_inline]] inline float gradientNoise(const float* gradients, float x) {
    constexpr std::uint32_t kCellStep = 275;
    constexpr std::uint32_t kMask = kGradientEntries - 1;
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
