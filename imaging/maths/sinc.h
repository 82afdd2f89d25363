// Hann-windowed sinc interpolation of radius 5: the taps of one axis.

#pragma once

#include <cstdint>

#include "imaging/tex_axis.h"

namespace ruvex {

inline constexpr int kSincRadius = 5;
inline constexpr int kSincTaps = 2 * kSincRadius + 1;

/// What a sample at one position of an axis reads, and how much of each.
struct SincAxis {
    float position;
    bool nearWhole;                 ///< so near a whole number that no kernel is needed there
    std::int32_t index[kSincTaps];  ///< buffer indices, kNoPixel for the fill pixel
    float tap[kSincTaps];           ///< their sum is 1
};

SincAxis sincAxis(const TexAxis& axis, float position);

}  // namespace ruvex
