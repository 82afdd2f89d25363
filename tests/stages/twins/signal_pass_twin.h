// One pixel of the signal pass, from a padded picture.

#pragma once

#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/signal_parameters.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

inline float curveTwin(float x, float c) {
    if (c >= 0.0f && x > 1.0f) return x;
    float m = x;
    if (x > 0.5f) m = static_cast<float>(1.0 - static_cast<double>(x));
    float r;
    if (c < 0.0f) {
        if (static_cast<double>(m) < 1.5259021896696422e-05) m = 1.5259022e-05f;
        r = static_cast<float>(
            maths::pow(static_cast<double>(m) * 2.0, (static_cast<double>(c) + 0.5) * 2.0) * 0.5);
    } else {
        double e = 3.4028234663852886e+38;
        if (c < 0.5f) e = 0.5 / (0.5 - static_cast<double>(c));
        const auto power = static_cast<float>(
            maths::pow(static_cast<float>(static_cast<double>(m) * 2.0), static_cast<float>(e)));
        r = power * 0.5f;
    }
    if (!(r > 0.0f)) r = 0.0f;
    if (x > 0.5f) r = 1.0f - r;
    return r > 0.0f ? r : 0.0f;
}

/// What becomes of a stored value, as a fraction.
template <class P>
float toneTwin(int i, float b, float contrast) {
    const float v =
        kEightBits<P> ? static_cast<float>(i) / 255.0f : static_cast<float>(i) * (1.0f / 16384.0f);
    float w;
    if (b < 0.0f) {
        w = (b + 1.0f) * v;
    } else {
        w = static_cast<float>((1.0 - static_cast<double>(v)) * static_cast<double>(b) +
                               static_cast<double>(v));
    }
    if (!(w > 0.0f)) w = 0.0f;
    return curveTwin(w, contrast);
}

template <class P>
int tableTwin(int i, float b, float contrast) {
    return heldTwin<P>(truncateToInt(toneTwin<P>(i, b, contrast) * kTwinWhite<P>));
}

template <class P>
struct SignalPassTwin {
    const SignalParameters& s;
    TwinPicture<P>& padded;

    float noiseShift(int y) const {
        const float amount = rampTwin(s.breakup, s.edgeDistortionMax, s.edgeThreshold);
        // A signal that is good enough tears nothing, whatever the noise, which can overflow.
        if (amount == 0.0f) return 0.0f;
        auto seed = static_cast<std::uint32_t>(s.seed);
        const float phase = uniform(seed) * 100.0f + s.edgePhase;
        const auto row = static_cast<float>(y);
        const float n = noiseTable().fractalNoise(
            (row - static_cast<float>(s.verticalOffset)) * s.edgeJaggedness / s.height + phase,
            s.edgeOctaves);
        float envelope = static_cast<float>(maths::sin(row * 3.1415927f / s.height)) * 3.0f;
        if (!(envelope > 0.0f)) envelope = 0.0f;
        if (envelope > 1.0f) envelope = 1.0f;
        return std::fabs(n) * envelope * amount;
    }

    float gain(int y) const {
        if (!(s.emInterference > 0.0f)) return 1.0f;
        auto seed =
            static_cast<std::uint32_t>(std::int64_t{s.seed} + std::int64_t{s.sourceFrame} * 20);
        const float u = uniform(seed) * 100.0f + static_cast<float>(y) / (s.height / 25.0f);
        return noiseTable().fractalNoise(u, 2) * s.emInterference + 1.0f;
    }

    // The picture rolls as one closed loop.
    const P& read(std::int64_t x, std::int64_t y) const {
        return padded.wrapped(x, y - s.verticalOffset);
    }

    P pixel(int x, int y) const {
        const std::int64_t column = std::int64_t{x} + truncateToInt(noiseShift(y));
        if (s.tvType == TvType::BlackAndWhite) return grey(read(column, y), y);
        if (s.tvType == TvType::Tint) return tint(read(column, y), y);
        const float guns[6] = {s.gunRedX,   s.gunRedY,  s.gunGreenX,
                               s.gunGreenY, s.gunBlueX, s.gunBlueY};
        for (const float gun : guns) {
            if (std::fabs(gun) >= 1.0f) return apart(static_cast<float>(column), y);
        }
        return together(read(column, y), y);
    }

    P withGain(int r, int g, int b, typename P::Component alpha, int y) const {
        const float factor = gain(y);
        return {{heldTwin<P>(static_cast<float>(r) * factor),
                 heldTwin<P>(static_cast<float>(g) * factor),
                 heldTwin<P>(static_cast<float>(b) * factor), alpha}};
    }

    P grey(const P& from, int y) const {
        const int l = heldTwin<P>((from.c[0] + from.c[1] + from.c[2]) / 3);
        const int t = tableTwin<P>(l, s.brightness, s.contrast);
        return withGain(t, t, t, from.c[3], y);
    }

    P tint(const P& from, int y) const {
        const int l = heldTwin<P>((from.c[0] + from.c[1] + from.c[2]) / 3);
        const float c = toneTwin<P>(l, s.brightness, s.contrast);
        int tinted[3];
        for (int k = 0; k < 3; ++k) {
            if (c < 0.5f) {
                tinted[k] = heldTwin<P>(s.tint[k] * (c / 0.5f));
            } else {
                const auto f = static_cast<float>((static_cast<double>(c) - 0.5) / 0.5);
                tinted[k] = heldTwin<P>((kTwinWhite<P> - s.tint[k]) * f + s.tint[k]);
            }
        }
        return withGain(tinted[0], tinted[1], tinted[2], from.c[3], y);
    }

    float lost() const { return rampTwin(s.breakup, s.colourDegradeMax, s.colourThreshold); }
    float weight() const {
        const float d = lost();
        const auto exact = static_cast<double>(d);
        if (exact < 0.4 && exact > 0.2) {
            const float t = (d - 0.2f) / 0.2f;
            return ((1.0f - t) * t + 1.0f) * t;
        }
        return exact < 0.2 ? d / 0.2f : d;
    }
    static int between(int from, int to, float k) {
        return truncateToInt(static_cast<float>(to - from) * k + static_cast<float>(from));
    }

    P together(const P& from, int y) const {
        const int r = from.c[0], g = from.c[1], b = from.c[2];
        const int average = (r + g + b) / 3;
        const auto d = static_cast<double>(lost());
        const float k = weight();
        if (d > 0.4) return shown(average, average, average, from.c[3], y);
        if (d > 0.2) {
            const int newRed = between(b, average, k);
            return shown(newRed, between(g, average, k), between(newRed, average, k), from.c[3], y);
        }
        if (d > 0.0) {
            const int newRed = between(r, b, k);
            return shown(newRed, g, between(b, newRed, k), from.c[3], y);
        }
        return shown(r, g, b, from.c[3], y);
    }

    P apart(float column, int y) const {
        const auto row = static_cast<float>(y);
        const P red = read(truncateToInt(column - s.gunRedX), truncateToInt(row - s.gunRedY));
        const P green = read(truncateToInt(column - s.gunGreenX), truncateToInt(row - s.gunGreenY));
        const P blue = read(truncateToInt(column - s.gunBlueX), truncateToInt(row - s.gunBlueY));
        const int r = red.c[0], g = green.c[1], b = blue.c[2];
        const int average = (r + g + b) / 3;
        const auto d = static_cast<double>(lost());
        const float k = weight();
        if (d > 0.4) return shown(average, average, average, red.c[3], y);
        if (d > 0.2) {
            return shown(between(red.c[2], average, k), between(g, average, k),
                         between(blue.c[0], average, k), red.c[3], y);
        }
        if (d > 0.0)
            return shown(between(r, red.c[2], k), g, between(b, blue.c[0], k), red.c[3], y);
        return shown(r, g, b, red.c[3], y);
    }

    P shown(int r, int g, int b, typename P::Component alpha, int y) const {
        const int t[3] = {tableTwin<P>(heldTwin<P>(r), s.gunRed + s.brightness, s.contrast),
                          tableTwin<P>(heldTwin<P>(g), s.gunGreen + s.brightness, s.contrast),
                          tableTwin<P>(heldTwin<P>(b), s.gunBlue + s.brightness, s.contrast)};
        const int l = (t[0] + t[1] + t[2]) / 3;
        const float saturation = s.colour > 0.0f ? s.colour : 0.0f;
        int v[3];
        for (int k = 0; k < 3; ++k) {
            v[k] = truncateToInt(static_cast<float>(t[k] - l) * saturation + static_cast<float>(l));
        }
        return withGain(v[0], v[1], v[2], alpha, y);
    }
};

/// An area of the signal with its margins; nothing elsewhere.
template <class P>
TwinPicture<P> signalTwin(TwinPicture<P>& padded, const SignalParameters& signal,
                          const TwinArea& made) {
    auto result = TwinPicture<P>::blankLike(padded);
    const SignalPassTwin<P> twin{signal, padded};
    made.forEach([&](int x, int y) { result.at(x, y) = twin.pixel(x, y); });
    return result;
}

}  // namespace ruvex::test
