// The numbers of one box of a blur along one axis.

#pragma once

#include <cstdint>

namespace ruvex {

/// A box of a fractional radius: the pixels up to `radius` to both sides count whole, and the two
/// just beyond count by the radius's fraction.
struct BoxWeights {
    /// `size` is the radius in pixels, at least 0 and below 2 to the 31.
    explicit BoxWeights(float size);

    std::int64_t radius;      ///< whole pixels to each side
    bool fraction;            ///< the two pixels beyond take part
    bool identity;            ///< the radius is exactly 0: of the box only its rounding is left
    std::int64_t reach;       ///< how far it reads to each side of the pixel it writes
    std::int64_t span;        ///< from a position's first input to the one that enters after it
    std::int32_t boxWeight;   ///< 1 over the box's width, in 1/16384, truncated
    std::int32_t edgeWeight;  ///< the radius's fraction, in 1/16384, truncated
    float boxFactor;          ///< the two weights as the float form takes them
    float edgeFactor;
};

}  // namespace ruvex
