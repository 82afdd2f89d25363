#include "media/pixels/code_scale.h"

#include <cmath>

#include "media/pixels/rounding_margin.h"

namespace ruvex::media {
namespace {

/// Code values up to this one are bytes, which the loops compute in floats.
constexpr int kTopOfBytes = 255;

}  // namespace

CodeMix lumaMix(const YuvCoding& coding, int white) {
    const CodeRange range = codeRange(coding);
    return {lumaShares(coding.matrix), range.black, range.luma, kLumaUnit * white, range.top};
}

// Colour differences are (B - Y) / (2 (1 - Kb)) and (R - Y) / (2 (1 - Kr)).

CodeMix blueMix(const YuvCoding& coding, int white) {
    const CodeRange range = codeRange(coding);
    const LumaShares shares = lumaShares(coding.matrix);
    const int rest = kLumaUnit - shares.blue;
    return {{-shares.red, -shares.green, rest},
            range.neutral,
            range.chroma,
            2 * rest * white,
            range.top};
}

CodeMix redMix(const YuvCoding& coding, int white) {
    const CodeRange range = codeRange(coding);
    const LumaShares shares = lumaShares(coding.matrix);
    const int rest = kLumaUnit - shares.red;
    return {{rest, -shares.green, -shares.blue},
            range.neutral,
            range.chroma,
            2 * rest * white,
            range.top};
}

CodeMix alphaMix(const YuvCoding& coding, int white) {
    const int top = codeRange(coding).top;
    return {{1, 0, 0}, 0, top, white, top};
}

PixelCodes::PixelCodes(const CodeMix& mix)
    : weights(mix.weights),
      range(2 * static_cast<std::uint32_t>(mix.range)),
      offset(static_cast<std::uint32_t>(2 * mix.zero + 1) * static_cast<std::uint32_t>(mix.unit)),
      divisor(2 * static_cast<std::uint32_t>(mix.unit)),
      factor(static_cast<float>(static_cast<double>(mix.range) / mix.unit)),
      start(static_cast<float>(mix.zero + 0.5)),
      top(mix.top) {}

SumCodes::SumCodes(const CodeMix& mix, std::int64_t unit, std::int64_t gain)
    : top(mix.top), mix_(mix), unit_(unit) {
    const double scale = std::ldexp(1.0, kFractionBits);
    const double factor =
        scale * mix.range / (static_cast<double>(mix.unit) * static_cast<double>(unit));
    red = mix.weights.red * factor;
    green = mix.weights.green * factor;
    blue = mix.weights.blue * factor;
    start = (mix.zero + 0.5) * scale;
    // A colour difference of whole pixels is at most half of the range away from neutral.
    const double overshoot = static_cast<double>(gain) / static_cast<double>(unit);
    const double most = start + scale * mix.range * overshoot;
    margin = top <= kTopOfBytes ? roundingMargin<float>(most) : roundingMargin<double>(most);
}

int SumCodes::nearest(std::int64_t reds, std::int64_t greens, std::int64_t blues, int upper) const {
    const WideInteger sum = WideInteger{mix_.weights.red} * reds +
                            WideInteger{mix_.weights.green} * greens +
                            WideInteger{mix_.weights.blue} * blues;
    const WideInteger unit = mix_.unit * unit_;
    const bool reaches = 2 * mix_.range * sum + (2 * mix_.zero + 1) * unit >= 2 * upper * unit;
    return reaches ? upper : upper - 1;
}

}  // namespace ruvex::media
