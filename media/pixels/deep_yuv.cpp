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

/// The share of red and blue in luma; green has the rest.
struct LumaShares {
    double red;
    double blue;
};

LumaShares sharesOf(int matrix) {
    switch (matrix) {
        case AVCOL_SPC_BT709:
            return {0.2126, 0.0722};
        case AVCOL_SPC_FCC:
            return {0.30, 0.11};
        case AVCOL_SPC_SMPTE240M:
            return {0.212, 0.087};
        case AVCOL_SPC_BT2020_NCL:
            return {0.2627, 0.0593};
        default:
            return {0.299, 0.114};
    }
}

/// Stored numbers to S2.14, as factors: R = Y + rv V, G = Y - gu U - gv V, B = Y + bu U.
class Decoder {
public:
    explicit Decoder(const YuvCoding& coding) {
        const int spare = 16 - coding.bits;
        const double top = ((1 << coding.bits) - 1) << spare;
        const double lumaRange = coding.full ? top : 219 * 256;
        const double colourRange = coding.full ? top : 224 * 256;
        const LumaShares share = sharesOf(coding.matrix);
        const double green = 1 - share.red - share.blue;
        const double colour = kWhiteS214 / colourRange;
        black_ = coding.full ? 0 : 16 * 256;
        luma_ = kWhiteS214 / lumaRange;
        rv_ = colour * 2 * (1 - share.red);
        bu_ = colour * 2 * (1 - share.blue);
        gu_ = bu_ * share.blue / green;
        gv_ = rv_ * share.red / green;
        alpha_ = kWhiteS214 / top;
    }

    void decode(int y, int u, int v, std::int16_t* pixel) const {
        const double luma = (y - black_) * luma_;
        const int blue = u - kMiddle;
        const int red = v - kMiddle;
        pixel[0] = store(luma + rv_ * red);
        pixel[1] = store(luma - gu_ * blue - gv_ * red);
        pixel[2] = store(luma + bu_ * blue);
    }

    std::int16_t decodeAlpha(int a) const { return store(a * alpha_); }

private:
    static constexpr int kMiddle = 1 << 15;

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
