// The white dot, pixel by pixel, and its halo.

#pragma once

#include <algorithm>

#include "imaging/blur/blur_gauss.h"
#include "imaging/maths/maths.h"
#include "stages/signal_parameters.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

template <class P>
class DotTwin {
public:
    DotTwin(TwinPicture<P>& picture, const SignalParameters& signal)
        : picture_(picture), s_(signal) {}

    /// Draws the picture shrunk into an area that is black.
    void shrink(TwinPicture<P>& to, const TwinArea& area, int workers) {
        for (const TwinShare& share : twinShares(area.top, area.height(), workers)) {
            for (int y = std::max(top(), share.first); y < std::min(bottom(), share.end); ++y) {
                for (int x = area.left; x < area.right; ++x) to.at(x, y) = pixel(x, y, share);
            }
        }
    }

    void glow(TwinPicture<P>& dot, float scaleY) const {
        const float q = s_.whiteDotSoftness;
        const float d = s_.whiteDot;
        const float glowY = d * 5.0f * s_.scale;
        const float glowX = glowY * scaleY;
        const float v = (1.0f - size(q * -300.0f * d)) * s_.height;
        const float u = (1.0f - size(q * -100.0f * d)) * s_.width * 0.5f;
        VxTexture<P> texture;
        texture.wrap(dot.width, dot.height, dot.pixels.data());
        texture.setOrigin(dot.left, dot.top);
        texture.x.offset = dot.left;
        texture.y.offset = dot.top;
        BlurGeneralGauss<P> blur;
        blur.radiusX = glowX / 3.0f;
        blur.radiusY = glowY / 3.0f;
        blur.iterations = 3;
        blur.setWindow(truncateToInt(u - glowX), truncateToInt(v * 0.5f - glowY),
                       truncateToInt(s_.width - u + glowX),
                       truncateToInt(s_.height - v * 0.5f + glowY));
        blur.process(&texture, &texture);
    }

private:
    static float size(float exponent) {
        return static_cast<float>(static_cast<double>(static_cast<float>(maths::exp(exponent))) +
                                  0.005);
    }
    float high() const { return size(s_.whiteDotSoftness * -300.0f * s_.whiteDot); }
    float cut() const { return (1.0f - high()) * s_.height * 0.5f; }
    int top() const { return truncateToInt(cut()); }
    int bottom() const { return truncateToInt(s_.height - cut()); }

    // The source row, in steps from the share's first one.
    float sourceRow(int y, const TwinShare& share) const {
        float sy = share.first >= top() ? static_cast<float>(share.first - top()) / high()
                                        : static_cast<float>(share.first);
        const float skip = 1.0f / high();
        for (int row = std::max(top(), share.first); row < y; ++row) {
            const float rows =
                static_cast<float>(picture_.height) + static_cast<float>(picture_.top);
            if (rows > skip + sy) sy += skip;
        }
        return sy;
    }

    P pixel(int x, int y, const TwinShare& share) const {
        const float tilt =
            static_cast<float>(bottom() - y) / static_cast<float>(bottom() - top()) / 10.0f;
        const float wide = size((tilt + s_.whiteDot) * (s_.whiteDotSoftness * -100.0f));
        const float skip = 1.0f / wide;
        const float cutX = (1.0f - wide) * s_.width * 0.5f;
        const int left = truncateToInt(cutX);
        const int right = truncateToInt(s_.width - cutX);
        if (x < left || x >= right) return P{};
        float sx = 0.0f;
        for (int column = left; column < x; ++column) sx += skip;
        const TwinArea source = picture_.area();
        const int row =
            std::clamp(truncateToInt(sourceRow(y, share)), source.top, source.bottom - 1);
        float sum[3] = {};
        for (int n = 0; static_cast<float>(n) < skip; ++n) {
            const int column = std::clamp(truncateToInt(sx) + n, source.left, source.right - 1);
            for (int k = 0; k < 3; ++k) {
                sum[k] += static_cast<float>(picture_.at(column, row).c[k]);
            }
        }
        P result{};
        for (int k = 0; k < 3; ++k) result.c[k] = heldTwin<P>(sum[k] / wide);
        return result;
    }

    TwinPicture<P>& picture_;
    const SignalParameters& s_;
};

}  // namespace ruvex::test
