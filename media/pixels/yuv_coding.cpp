#include "media/pixels/yuv_coding.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

namespace ruvex::media {
namespace {

// Limited range at 8 bits; at more bits all are multiplied by the same power of two.
constexpr int kLimitedBlack = 16;
constexpr int kLimitedLuma = 219;
constexpr int kLimitedChroma = 224;
constexpr int kBitsOfLimited = 8;

/// Green has the rest.
constexpr LumaShares sharesOf(int red, int blue) {
    return {red, kLumaUnit - red - blue, blue};
}

}  // namespace

LumaShares lumaShares(int matrix) {
    switch (matrix) {
        case AVCOL_SPC_BT709:
            return sharesOf(2126, 722);
        case AVCOL_SPC_FCC:
            return sharesOf(3000, 1100);
        case AVCOL_SPC_SMPTE240M:
            return sharesOf(2120, 870);
        case AVCOL_SPC_BT2020_NCL:
            return sharesOf(2627, 593);
        default:  // BT.601, in both of its code points
            return sharesOf(2990, 1140);
    }
}

CodeRange codeRange(const YuvCoding& coding) {
    const int top = (1 << coding.bits) - 1;
    const int neutral = 1 << (coding.bits - 1);
    if (coding.full) {
        return {0, top, neutral, top, top};
    }
    const int scale = 1 << (coding.bits - kBitsOfLimited);
    return {kLimitedBlack * scale, kLimitedLuma * scale, neutral, kLimitedChroma * scale, top};
}

}  // namespace ruvex::media
