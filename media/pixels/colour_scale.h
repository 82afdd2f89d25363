// From code values of YUV to red, green and blue.

#pragma once

#include <array>
#include <cstdint>

#include "media/pixels/wide_integer.h"
#include "media/pixels/yuv_coding.h"

namespace ruvex::media {

/// The factors of R = Y + rv V, G = Y - gu U - gv V, B = Y + bu U, where Y = y0 (luma - black), and
/// U and V are colour differences, multiplied by the unit of the chroma weights. All include the
/// white of the frame.
///
/// The loops compute components in floating point, in multiples of 1 / 2^kFractionBits, and know
/// how far from the exact value they can be. Where this leaves open to which side the exact value
/// is rounded, they ask `nearest`, which computes in integers. So every component is the nearest to
/// its exact value, on every processor.
class ColourScale {
public:
    static constexpr int kFractionBits = 15;

    /// For frames of this white, of 8 bits or S2.14. `gain` is the largest sum of absolute chroma
    /// weights for an output, in the same multiples as `unit`.
    ColourScale(const YuvCoding& coding, int white, std::int64_t unit, std::int64_t gain);

    /// The nearest integer to the exact value of a component (0 red, 1 green, 2 blue), halves up,
    /// which must be `upper` or `upper` - 1. `luma` is the code value less the black one.
    int nearest(int component, int luma, std::int64_t blue, std::int64_t red, int upper) const;

    int black;   ///< Luma's code value.
    int white;   ///< Of the frame.
    int margin;  ///< The most by which a component in the loops is wrong, in their multiples.
    // In the loops' multiples: factors, and what is added for luma's black and for rounding.
    double y0, rv, gu, gv, bu, start;
    double alpha;  ///< From a code value of alpha to the frame's.

private:
    /// A component as luma * `luma` + blue * `blue` + red * `red`, divided by the common divisor.
    struct Numerators {
        WideInteger luma, blue, red;
    };
    std::array<Numerators, 3> numerators_;
    WideInteger divisor_;
};

}  // namespace ruvex::media
