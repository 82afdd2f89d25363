// One pixel of the padded picture: the source, or what lies around it.

#pragma once

#include <cmath>

#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/signal_parameters.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

struct MarginsTwin {
    int x, y;
};
inline MarginsTwin marginsTwin(const SignalParameters& s, float scaleY) {
    return {static_cast<int>(s.width * scaleY / 7.0f), static_cast<int>(s.height / 10.0f)};
}

struct BorderTwin {
    const SignalParameters& signal;
    MarginsTwin margins;
    int columnEnd;  // one past the padded picture's last column

    int top() const { return -margins.y; }
    int bottom() const { return static_cast<int>(static_cast<float>(margins.y) + signal.height); }
    float noiseHeight() const { return static_cast<float>(margins.y) * 0.4f; }
    bool topNoise(int y) const {
        return y >= top() && y < static_cast<int>(static_cast<float>(top()) + noiseHeight());
    }
    bool bottomNoise(int y) const {
        return y < bottom() && y >= static_cast<int>(static_cast<float>(bottom()) - noiseHeight());
    }
    bool black(int y) const {
        const int upper = static_cast<int>(static_cast<float>(top()) + noiseHeight());
        const int lower = static_cast<int>(static_cast<float>(bottom()) - noiseHeight());
        return (y >= upper && y < 0) || (y >= bottom() + top() && y < lower);
    }

    template <class P>
    P ground() const {
        P pixel{};
        if (signal.borderAlpha == BorderAlpha::Full) {
            pixel.c[3] = static_cast<typename P::Component>(kTwinWhite<P>);
        }
        return pixel;
    }

    // Every noise row of the share takes one random number, the upper ones first.
    float rowStart(int y, const TwinShare& share) const {
        int before = 0;
        for (int row = share.first; row < share.end; ++row) {
            if (topNoise(row) && (row < y || !topNoise(y))) ++before;
            if (bottomNoise(row) && row < y && !topNoise(y)) ++before;
        }
        auto state = static_cast<std::uint32_t>(
            static_cast<std::int64_t>(static_cast<float>(signal.sourceFrame) * 100.0f +
                                      static_cast<float>(static_cast<std::uint32_t>(signal.seed))));
        for (int i = 0; i < before; ++i) nextRandom(state);
        return uniform(state) * 1000.0f;
    }

    template <class P>
    P noise(int x, int y, const TwinShare& share) const {
        P pixel = ground<P>();
        const float f = noiseTable().fractalNoise(
            static_cast<float>(x) * 50.0f / static_cast<float>(columnEnd) + rowStart(y, share), 8);
        if (!(std::fabs(static_cast<double>(f)) > 0.2)) return pixel;
        const auto c = heldTwin<P>(f * kTwinWhite<P>);
        for (int k = 0; k < 3; ++k) pixel.c[k] = c;
        if (signal.borderAlpha == BorderAlpha::Banded) pixel.c[3] = c;
        return pixel;
    }

    // Whether column x lies in the pulses, and in which.
    enum class Bar { None, Black, White };
    Bar bar(int x) const {
        const auto m = static_cast<float>(margins.x);
        const auto a = static_cast<float>(-margins.x);
        const auto b = static_cast<float>(columnEnd);
        const float ends[10] = {a,
                                a + 0.2f * m,
                                a + 0.3f * m,
                                a + 0.4f * m,
                                a + 0.5f * m,
                                b - 0.5f * m,
                                b - 0.4f * m,
                                b - 0.3f * m,
                                b - 0.2f * m,
                                b};
        constexpr Bar kPaint[9] = {Bar::Black, Bar::White, Bar::Black, Bar::White, Bar::None,
                                   Bar::White, Bar::Black, Bar::White, Bar::Black};
        Bar found = Bar::None;
        for (int i = 0; i < 9; ++i) {
            const bool in = x >= static_cast<int>(ends[i]) && x < static_cast<int>(ends[i + 1]);
            if (in && kPaint[i] != Bar::None) found = kPaint[i];
        }
        return found;
    }

    template <class P>
    P pixel(int x, int y, const P& source, const TwinShare& share) const {
        P result = source;
        if (black(y)) result = ground<P>();
        if (topNoise(y) || bottomNoise(y)) result = noise<P>(x, y, share);
        const Bar found = bar(x);
        if (found == Bar::None) return result;
        const auto white = static_cast<typename P::Component>(kTwinWhite<P>);
        result = found == Bar::White ? P{{white, white, white, white}} : P{};
        if (signal.borderAlpha == BorderAlpha::None) result.c[3] = 0;
        if (signal.borderAlpha == BorderAlpha::Full) result.c[3] = white;
        return result;
    }
};

/// The padded picture that the signal is read from.
template <class P>
TwinPicture<P> paddedTwin(TwinPicture<P>& source, const SignalParameters& signal, float scaleY,
                          int workers) {
    const MarginsTwin m = marginsTwin(signal, scaleY);
    TwinPicture<P> padded(-m.x, -m.y, source.width + 2 * m.x, source.height + 2 * m.y);
    const BorderTwin border{signal, m, source.width + m.x};
    for (const TwinShare& share : twinShares(-m.y, padded.height, workers)) {
        for (int y = share.first; y < share.end; ++y) {
            for (int x = -m.x; x < source.width + m.x; ++x) {
                const bool inside = x >= 0 && x < source.width && y >= 0 && y < source.height;
                padded.at(x, y) = border.pixel(x, y, inside ? source.at(x, y) : P{}, share);
            }
        }
    }
    return padded;
}

}  // namespace ruvex::test
