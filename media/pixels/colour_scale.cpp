#include "media/pixels/colour_scale.h"

#include <algorithm>
#include <cmath>

#include "media/frame.h"
#include "media/pixels/rounding_margin.h"

namespace ruvex::media {
ColourScale::ColourScale(const YuvCoding& coding, int white_, std::int64_t unit, std::int64_t gain)
    : white(white_) {
    const CodeRange range = codeRange(coding);
    const LumaShares share = lumaShares(coding.matrix);
    // Colour differences are (B - Y) / (2 (1 - Kb)) and (R - Y) / (2 (1 - Kr)).
    const WideInteger red = 2 * (kLumaUnit - share.red);
    const WideInteger blue = 2 * (kLumaUnit - share.blue);
    const WideInteger luma = WideInteger{white} * range.chroma * kLumaUnit * unit * share.green;
    const WideInteger chroma = WideInteger{white} * range.luma;
    divisor_ = WideInteger{range.luma} * range.chroma * kLumaUnit * unit * share.green;
    numerators_ = {
        Numerators{luma, 0, chroma * red * share.green},
        Numerators{luma, -chroma * blue * share.blue, -chroma * red * share.red},
        Numerators{luma, chroma * blue * share.green, 0},
    };

    const double scale = std::ldexp(1.0, kFractionBits) / static_cast<double>(divisor_);
    const auto factor = [&](WideInteger numerator) {
        return static_cast<double>(numerator) * scale;
    };
    y0 = factor(luma);
    rv = factor(numerators_[0].red);
    gu = -factor(numerators_[1].blue);
    gv = -factor(numerators_[1].red);
    bu = factor(numerators_[2].blue);
    black = range.black;
    start = std::ldexp(0.5, kFractionBits) - black * y0;
    alpha = static_cast<double>(white) / range.top;

    const double most = y0 * range.top + std::abs(start) +
                        std::max({rv, bu, gu + gv}) * range.neutral * static_cast<double>(gain);
    margin = white == kWhite8 ? roundingMargin<float>(most) : roundingMargin<double>(most);
}

int ColourScale::nearest(int component, int luma, std::int64_t blue, std::int64_t red,
                         int upper) const {
    const Numerators& by = numerators_[static_cast<std::size_t>(component)];
    const WideInteger exact = by.luma * luma + by.blue * blue + by.red * red;
    const bool reaches = 2 * exact >= (2 * WideInteger{upper} - 1) * divisor_;
    return reaches ? upper : upper - 1;
}

}  // namespace ruvex::media
