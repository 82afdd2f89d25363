// The recorder's faults, one worker's rows after the other's.

#pragma once

#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/signal_parameters.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

/// Reads `work`, changes `shown`, which begins as a copy of it.
template <class P>
class TransportTwin {
public:
    TransportTwin(TwinPicture<P>& work, TwinPicture<P>& shown, const SignalParameters& signal,
                  float scaleY, const TwinArea& area)
        : work_(work), shown_(shown), s_(signal), scaleY_(scaleY), area_(area) {}

    void run(int workers) {
        if (s_.dvdMode) return;
        for (const TwinShare& share : twinShares(area_.top, area_.height(), workers)) {
            share_ = share;
            if (s_.playState == PlayState::Winding) fast();
            if (s_.playState == PlayState::Slow) slow();
        }
    }

private:
    using Component = typename P::Component;

    bool mine(int y) const { return y >= share_.first && y < share_.end; }

    void white(int x, int y, float f) {
        P& pixel = shown_.at(x, y);
        for (int k = 0; k < 3; ++k) {
            const auto c = static_cast<float>(pixel.c[k]);
            pixel.c[k] = heldTwin<P>((kTwinWhite<P> - c) * f + c);
        }
    }

    // Far out of sight a band may lie anywhere.
    void tear(std::int64_t c, int b, float shiftTop, float shiftBottom, float mix) {
        for (int y = share_.first; y < share_.end; ++y) {
            if (y < c - b || y >= c + b) continue;
            const bool upper = y <= c;
            const auto e = upper ? y - (c - b) : c + b - y;
            const float part = static_cast<float>(e) / static_cast<float>(b);
            const float shift = (upper ? shiftTop : shiftBottom) * (part * part);
            const float k =
                upper ? mix * static_cast<float>(y - (c - b)) / static_cast<float>(b) : 0.0f;
            for (int x = area_.left; x < area_.right; ++x) {
                const P from = work_.mirrored(truncateToInt(static_cast<float>(x) + shift), y);
                P& to = shown_.at(x, y);
                const int r = from.c[0], blue = from.c[2];
                to.c[0] = static_cast<Component>(
                    static_cast<int>(static_cast<float>(blue - r) * k + static_cast<float>(r)));
                to.c[1] = from.c[1];
                to.c[2] = static_cast<Component>(
                    static_cast<int>(static_cast<float>(r - blue) * k + static_cast<float>(blue)));
            }
        }
    }

    float sign(std::uint32_t& seed) const {
        const float r = uniform(seed) * 100.0f;
        const float at = static_cast<float>(s_.sourceFrameIndex) / 10.0f + r;
        return noiseTable().fractalNoise(at, 2) > 0.0f ? 1.0f : -1.0f;
    }

    void fast() {
        auto a = static_cast<std::uint32_t>(std::int64_t{s_.sourceFrameIndex} * 200 + s_.seed);
        auto b2 = static_cast<std::uint32_t>(s_.seed);
        const float jitter = s_.height / 250.0f;
        const int half = static_cast<int>(s_.height / 20.0f);
        for (int j = 0; j < 6; ++j) {
            const float pos = static_cast<float>(j) * s_.height / 5.0f + 0.0f +
                              (uniform(a) * (jitter + jitter) - jitter) -
                              s_.height * s_.playSpeedAtStart / 10.0f;
            int c = truncateToInt(pos);
            if (static_cast<float>(c) < 0.0f - static_cast<float>(half)) {
                c = truncateToInt(s_.height * 6.0f / 5.0f + static_cast<float>(c));
            }
            const float up = sign(b2);
            const float down = sign(b2);
            const auto reach = static_cast<float>(half);
            tear(c, half, reach * up * scaleY_, reach * down * scaleY_, 1.0f);
            streak(c, reach / 3.0f, 35.0f, a, true);
            streak(c, reach / 30.0f, 20.0f, a, false);
        }
    }

    void streak(int c, float half, float cells, std::uint32_t& a, bool broad) {
        const int from = truncateToInt(static_cast<float>(c) - half);
        const int to = truncateToInt(static_cast<float>(c) + half);
        const float w49 = s_.height * 2.0f / 49.0f;
        const float y49 = static_cast<float>(c) - s_.height * 0.020408163f;
        for (int y = from; y < to; ++y) {
            if (!mine(y)) continue;
            const float r = uniform(a) * 1000.0f;
            const double bow = maths::sin((static_cast<float>(y) - y49) * 3.1415927f / w49) * 1.5;
            const float envelope = bow > 0.0 ? static_cast<float>(bow) : 0.0f;
            for (int x = area_.left; x < area_.right; ++x) {
                const float t = static_cast<float>(x) / (s_.width * scaleY_ / cells) + r;
                const float n = noiseTable().fractalNoise(t, 2);
                float f = broad ? std::fabs(n) * envelope : std::fabs(n * 3.0f);
                if (f > 1.0f) f = 1.0f;
                if (static_cast<double>(f) > (broad ? 0.2 : 0.8)) white(x, y, f);
            }
        }
    }

    void slow() {
        auto a = static_cast<std::uint32_t>(s_.seed + s_.framesAtLowSpeed * 10);
        const float g = s_.framesAtLowSpeed % 2 != 0 ? 0.6f : 0.4f;
        for (int y = share_.first; y < share_.end; ++y) {
            for (int x = area_.left; x < area_.right; ++x) twice(x, y, g);
        }
        if (s_.framesAtLowSpeed < 10) {
            const float place = s_.height * (s_.framesAtLowSpeed < 5 ? 0.6f : 0.3f);
            const int c =
                truncateToInt(static_cast<double>(place) -
                              static_cast<double>(s_.height) * 0.01 * s_.framesAtLowSpeed);
            const int half = static_cast<int>(s_.height / 15.0f);
            const float shift = static_cast<float>(half) * scaleY_ * 0.5f;
            tear(c, half, shift, shift, 0.25f);
        }
        const int end = static_cast<int>(s_.height * 0.2f);
        for (int y = 0; y < end; ++y) {
            if (!mine(y)) continue;
            const float r = uniform(a) * 1000.0f;
            const float fade = static_cast<float>(maths::cos(static_cast<float>(y) * 1.5707964f /
                                                             static_cast<float>(end))) *
                               0.5f;
            for (int x = area_.left; x < area_.right; ++x) {
                const float t = static_cast<float>(x) / (s_.width * scaleY_ / 10.0f) + r;
                float f = noiseTable().fractalNoise(t, 2) * fade;
                f = f > 0.0f ? (f > 1.0f ? 1.0f : f) : 0.0f;
                white(x, y, f);
            }
        }
    }

    void twice(int x, int y, float g) {
        const float distance = s_.width * scaleY_ / 150.0f;
        const P a = work_.at(x, y);
        const P b = work_.mirrored(truncateToInt(static_cast<float>(x) - distance), y);
        for (int k = 0; k < 3; ++k) {
            const auto from = static_cast<float>(a.c[k]);
            shown_.at(x, y).c[k] = static_cast<Component>(
                static_cast<int>((static_cast<float>(b.c[k]) - from) * g + from));
        }
    }

    TwinPicture<P>& work_;
    TwinPicture<P>& shown_;
    const SignalParameters& s_;
    float scaleY_;
    TwinArea area_;
    TwinShare share_{};
};

}  // namespace ruvex::test
