#include "media/pixels/deep_yuv.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <algorithm>
#include <cmath>

#include "media/frame.h"
#include "media/pixels/plane_line.h"

namespace ruvex::media {
namespace {

/// The luma coefficients Kr and Kb of a matrix (ITU-T H.273, table 4): luma is
/// Kr R + (1 - Kr - Kb) G + Kb B.
struct LumaCoefficients {
    double red;
    double blue;
};

LumaCoefficients coefficientsOf(int matrix) {
    switch (matrix) {
        case AVCOL_SPC_BT709:
            return {0.2126, 0.0722};
        case AVCOL_SPC_FCC:
            return {0.30, 0.11};
        case AVCOL_SPC_SMPTE240M:
            return {0.212, 0.087};
        case AVCOL_SPC_BT2020_NCL:
            return {0.2627, 0.0593};
        default:  // BT.601, in both of its code points
            return {0.299, 0.114};
    }
}

// Limited range in 16 bits: luma 16 to 235 and chroma 16 to 240 of the 8-bit scale, times 256.
constexpr int kLimitedBlack = 16 * 256;
constexpr int kLimitedLumaRange = 219 * 256;
constexpr int kLimitedChromaRange = 224 * 256;
/// Chroma 0, in both ranges.
constexpr int kNeutralChroma = 1 << 15;

/// Converts stored 16-bit values to S2.14: R = Y + rv V, G = Y - gu U - gv V, B = Y + bu U, where
/// Y = luma (y - black), U = u - neutral, V = v - neutral. The factors include S2.14's white.
class Decoder {
public:
    explicit Decoder(const YuvCoding& coding) {
        const int spareBits = 16 - coding.bits;
        const double top = ((1 << coding.bits) - 1) << spareBits;
        const double lumaRange = coding.full ? top : kLimitedLumaRange;
        const double chromaRange = coding.full ? top : kLimitedChromaRange;
        const LumaCoefficients k = coefficientsOf(coding.matrix);
        const double green = 1 - k.red - k.blue;
        const double chroma = kWhiteS214 / chromaRange;
        black_ = coding.full ? 0 : kLimitedBlack;
        luma_ = kWhiteS214 / lumaRange;
        rv_ = chroma * 2 * (1 - k.red);
        bu_ = chroma * 2 * (1 - k.blue);
        gu_ = bu_ * k.blue / green;
        gv_ = rv_ * k.red / green;
        alpha_ = kWhiteS214 / top;
    }

    void decode(int y, int u, int v, std::int16_t* pixel) const {
        const double luma = (y - black_) * luma_;
        const int blue = u - kNeutralChroma;
        const int red = v - kNeutralChroma;
        pixel[0] = store(luma + rv_ * red);
        pixel[1] = store(luma - gu_ * blue - gv_ * red);
        pixel[2] = store(luma + bu_ * blue);
    }

    std::int16_t decodeAlpha(int a) const { return store(a * alpha_); }

private:
    /// Rounded to the nearest, clamped to 16 bits.
    static std::int16_t store(double value) {
        return static_cast<std::int16_t>(std::lrint(std::clamp(value, -32768.0, 32767.0)));
    }

    double black_, luma_, rv_, gu_, gv_, bu_, alpha_;
};

}  // namespace

void unpackDeepYuv(const AVFrame& picture, const YuvCoding& coding, Frame& frame) {
    const Decoder decoder(coding);
    for (int y = 0; y < picture.height; ++y) {
        std::int16_t* pixel = frame.row16(chainRowOfLine(y, picture.height));
        const std::uint16_t* luma = planeLine<const std::uint16_t>(picture, 0, y);
        const std::uint16_t* blue = planeLine<const std::uint16_t>(picture, 1, y);
        const std::uint16_t* red = planeLine<const std::uint16_t>(picture, 2, y);
        const std::uint16_t* alpha =
            coding.alpha ? planeLine<const std::uint16_t>(picture, 3, y) : nullptr;
        for (int x = 0; x < picture.width; ++x, pixel += kChannels) {
            decoder.decode(luma[x], blue[x], red[x], pixel);
            pixel[3] = coding.alpha ? decoder.decodeAlpha(alpha[x]) : std::int16_t{kWhiteS214};
        }
    }
}

}  // namespace ruvex::media
