// One pixel of snow.

#pragma once

#include <algorithm>
#include <cmath>

#include "imaging/maths/random.h"
#include "imaging/noise/noise_gen.h"
#include "imaging/noise/rgba_noise_gen.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

struct NoiseTwin {
    bool colour = true;
    bool alpha = false;
    std::uint32_t seed = 0;
    float sparseness = 0.0f;
    float low[4] = {};  // fractions of white
    float high[4] = {};
    float softX[4] = {};
    float softY[4] = {};
    float aspect = 1.0f;
};

/// What the dead band leaves of a noise value.
inline float bandTwin(float v, float sparseness, float reach) {
    if (!(sparseness > 0.0f)) return v;
    const float cut = sparseness * reach;
    const float stretch = reach / (reach - cut);
    if (v < 0.0f) {
        v = (v + cut) * stretch;
        return v < 0.0f ? v : 0.0f;
    }
    v = (v - cut) * stretch;
    return v > 0.0f ? v : 0.0f;
}

/// Adds noise to each pixel of an area of a picture.
template <class P>
class NoiseOver {
public:
    NoiseOver(const NoiseTwin& noise, TwinPicture<P>& picture, const TwinArea& area)
        : n_(noise), picture_(picture), area_(area) {
        for (int k = 0; k < 4; ++k) {
            if ((k < 3 || n_.alpha) && (n_.softX[k] > 0.0f || n_.softY[k] > 0.0f)) soft_ = true;
        }
        if (area_.width() < 1 || area_.height() < 1) soft_ = false;
        if (soft_) makeSoftNoise();
    }

    void run() {
        if (n_.sparseness >= 1.0f) return;
        area_.forEach([&](int x, int y) {
            P& pixel = picture_.at(x, y);
            pixel = n_.colour ? colourPixel(pixel, x, y) : greyPixel(pixel, x, y);
        });
    }

private:
    static constexpr float kStep = 4.656613e-10f;

    void makeSoftNoise() {
        if (n_.colour) {
            colours_.allocateRegion(area_.left, area_.top, area_.right - 1, area_.bottom - 1,
                                    Contents::Zero);
            VxRGBANoiseGen generator;
            generator.seed = n_.seed;
            generator.alpha = n_.alpha;
            for (int k = 0; k < 4; ++k) {
                generator.scale[k] = (n_.high[k] - n_.low[k]) * kTwinWhite<P>;
                generator.blurX[k] = n_.softX[k];
                generator.blurY[k] = n_.softY[k];
            }
            giveAspect(generator);
            generator.process(colours_);
        } else {
            greys_.allocateRegion(area_.left, area_.top, area_.right - 1, area_.bottom - 1,
                                  Contents::Zero);
            VxNoiseGen generator;
            generator.seed = n_.seed;
            generator.scale = n_.high[0] * kTwinWhite<P> - n_.low[0] * kTwinWhite<P>;
            generator.blurX = n_.softX[0];
            generator.blurY = n_.softY[0];
            giveAspect(generator);
            generator.process(greys_);
        }
    }

    void giveAspect(VxImgProc& generator) const {
        generator.scaleX = n_.aspect < 0.001f ? 0.001f : n_.aspect;
        generator.scaleY = 1.0f / generator.scaleX;
    }

    float hash(int x, int y, int component) const {
        const std::uint32_t n = static_cast<std::uint32_t>(y) * 17387u +
                                static_cast<std::uint32_t>(x) * 7907u + n_.seed +
                                static_cast<std::uint32_t>(component);
        return static_cast<float>(positionHash(n));
    }

    P greyPixel(const P& from, int x, int y) {
        constexpr float kWhite = kTwinWhite<P>;
        const float lo = (n_.low[0] * kWhite + n_.low[1] * kWhite + n_.low[2] * kWhite) / 3.0f;
        const float hi = (n_.high[0] * kWhite + n_.high[1] * kWhite + n_.high[2] * kWhite) / 3.0f;
        float v = soft_ ? static_cast<float>(greys_.writeAt(x, y)->c[0])
                        : hash(x, y, 0) * ((hi - lo) * kStep);
        v = bandTwin(v + lo, n_.sparseness, std::max(std::fabs(lo), std::fabs(hi)));
        P result = from;
        for (int k = 0; k < (n_.alpha ? 4 : 3); ++k) {
            result.c[k] = heldTwin<P>(static_cast<float>(from.c[k]) + v);
        }
        return result;
    }

    P colourPixel(const P& from, int x, int y) {
        constexpr float kWhite = kTwinWhite<P>;
        const int components = n_.alpha ? 4 : 3;
        float reach = 0.0f;
        for (int k = 0; k < components; ++k) {
            reach =
                std::max({reach, std::fabs(n_.low[k] * kWhite), std::fabs(n_.high[k] * kWhite)});
        }
        P result = from;
        for (int k = 0; k < components; ++k) {
            const float lo = n_.low[k] * kWhite;
            const float span = n_.high[k] * kWhite - lo;
            float v = soft_ ? static_cast<float>(colours_.writeAt(x, y)->c[k])
                            : hash(x, y, k) * (span * kStep);
            v = bandTwin(v + lo, n_.sparseness, reach);
            result.c[k] = heldTwin<P>(static_cast<float>(from.c[k]) + v);
        }
        return result;
    }

    const NoiseTwin& n_;
    TwinPicture<P>& picture_;
    TwinArea area_;
    bool soft_ = false;
    VxTexture<RgbaInt> colours_;
    VxTexture<ChannelInt> greys_;
};

/// The snow of a weak signal, in place.
template <class P>
void snowTwin(TwinPicture<P>& picture, const SignalParameters& s, float scaleY,
              const TwinArea& area) {
    if (!(s.breakup > s.snowThreshold) || s.snowMax == 0.0f) return;
    const float amount = rampTwin(s.breakup, s.snowMax, s.snowThreshold);
    NoiseTwin noise;
    noise.colour = s.tvType != TvType::BlackAndWhite;
    noise.alpha = true;
    noise.sparseness = s.snowSparseness;
    for (int k = 0; k < 4; ++k) {
        noise.high[k] = amount;
        noise.low[k] = -amount;
        noise.softX[k] = s.snowSoftness * s.scale * scaleY;
    }
    const float start = std::fabs(static_cast<float>(s.sourceFrame) * 12541.0f);
    noise.seed = static_cast<std::uint32_t>(static_cast<std::int64_t>(start)) + 1u;
    NoiseOver<P>(noise, picture, area).run();
}

}  // namespace ruvex::test
