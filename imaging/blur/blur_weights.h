// Radius and weights of one box filter of a blur.

#pragma once

#include <cstdint>

namespace ruvex {

/// A box of a fractional radius: `radius` pixels to each side have weight 1, and the next pixel on
/// each side is weighted by the fractional part of the radius.
struct BoxWeights {
    /// `size` is the radius in pixels, 0 <= size < 2^31.
    explicit BoxWeights(float size);

    std::int64_t radius;      ///< whole pixels to each side
    bool fraction;            ///< the radius has a fractional part, so the edge pixels count
    bool identity;            ///< the radius is exactly 0: no blur, only rounding
    std::int64_t reach;       ///< pixels read to each side of the output pixel
    std::int64_t span;        ///< from an output's first input to the input that is added next
    std::int32_t boxWeight;   ///< 1 / width of the box, in 1/16384, truncated
    std::int32_t edgeWeight;  ///< fractional part of the radius, in 1/16384, truncated
    float boxFactor;          ///< 1 / width of the box
    float edgeFactor;         ///< fractional part of the radius
};

}  // namespace ruvex
