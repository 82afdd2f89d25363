// From sums of red, green and blue to code values of YUV.

#pragma once

#include <cstdint>

#include "media/pixels/wide_integer.h"
#include "media/pixels/yuv_coding.h"

namespace ruvex::media {

/// What code values stand for: the code value of `zero` + `range` * value / `unit`, where the value
/// is a sum of red, green and blue with these integer weights. Codes are 0 to `top`.
struct CodeMix {
    LumaShares weights;
    int zero;
    int range;
    int unit;
    int top;
};

/// Luma of frames with this white.
CodeMix lumaMix(const YuvCoding& coding, int white);
/// The colour differences of frames with this white.
CodeMix blueMix(const YuvCoding& coding, int white);
CodeMix redMix(const YuvCoding& coding, int white);
/// Alpha, in the place of red.
CodeMix alphaMix(const YuvCoding& coding, int white);

/// The code values of whole pixels, whose sums fit 32 bits. The loops compute a quotient in floats,
/// which is at most 1 too high or too low, and correct it by its remainder: exact integers modulo
/// 2^32, as the remainder itself is below 2^31.
struct PixelCodes {
    explicit PixelCodes(const CodeMix& mix);

    LumaShares weights;
    // A code value is (range * sum + offset) / divisor, rounded down.
    std::uint32_t range;
    std::uint32_t offset;
    std::uint32_t divisor;
    // The same in floats: sum * factor + start.
    float factor;
    float start;
    int top;
};

/// The code values of pixels whose components are sums of samples, with integer weights that add up
/// to `unit`. The loops compute them in floating point, in multiples of 1 / 2^kFractionBits; where
/// that leaves open to which side the exact value is rounded, `nearest` decides in integers.
class SumCodes {
public:
    static constexpr int kFractionBits = 14;

    /// `gain` is the largest sum of absolute weights, in the same multiples as `unit`.
    SumCodes(const CodeMix& mix, std::int64_t unit, std::int64_t gain);

    /// The nearest code value, halves up, which must be `upper` or `upper` - 1.
    int nearest(std::int64_t red, std::int64_t green, std::int64_t blue, int upper) const;

    // A code value, rounded down, is red * `red` + green * `green` + blue * `blue` + `start`, in
    // the loops' multiples.
    double red, green, blue, start;
    int top;
    int margin;  ///< The most by which a code value in the loops is wrong, in their multiples.

private:
    CodeMix mix_;
    WideInteger unit_;
};

}  // namespace ruvex::media
