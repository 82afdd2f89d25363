// Hann-windowed sinc interpolation of radius 5: the taps of one axis.

#pragma once

#include <cstdint>

#include "imaging/tex_axis.h"

namespace ruvex {

inline constexpr int kSincRadius = 5;
inline constexpr int kSincTaps = 2 * kSincRadius + 1;

/// The pixels that a sample at one position on an axis reads, and their weights.
struct SincAxis {
    float position;
    bool nearWhole;                 ///< within 0.01 of a whole number: sampled without the kernel
    std::int32_t index[kSincTaps];  ///< buffer indices, kNoPixel for the fill pixel
    float tap[kSincTaps];           ///< weights; their sum is 1
};

SincAxis sincAxis(const TexAxis& axis, float position);

}  // namespace ruvex
