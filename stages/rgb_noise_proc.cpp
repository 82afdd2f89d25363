#include "stages/rgb_noise_proc.h"

#include <algorithm>
#include <cmath>

#include "imaging/line_copier.h"
#include "imaging/noise_gen.h"
#include "imaging/random.h"
#include "imaging/rgba_noise_gen.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

constexpr float kLeastAspect = 0.001f;

// What lies inside the band is silent; the rest is stretched back to the full range.
struct DeadBand {
    bool present;
    float cut;
    float stretch;

    // Noise without any reach, which stretches to no number, is silent as well.
    float operator()(float v) const {
        if (!present) return v;
        const float left = (v < 0.0f ? v + cut : v - cut) * stretch;
        return (v < 0.0f ? left < 0.0f : left > 0.0f) ? left : 0.0f;
    }
};

DeadBand deadBand(float sparseness, float reach) {
    const float cut = sparseness * reach;
    return {sparseness > 0.0f, cut, reach / (reach - cut)};
}

float hashValue(std::uint32_t number) {
    return static_cast<float>(static_cast<std::int32_t>(positionHash(number)));
}

template <class Generator>
void giveRun(Generator& generator, const VxImgProc& from, std::uint32_t seed) {
    generator.interrupt = from.interrupt;
    generator.seed = seed;
    generator.scaleX = std::max(from.scaleX, kLeastAspect);
    generator.scaleY = 1.0f / generator.scaleX;
}

// Calls pixel(source, target, x) for each pixel of a row's columns.
template <class P, class Pixel>
void overRow(const VxTexture<P>& source, P* to, std::int32_t y, Span columns, Pixel pixel) {
    for (std::int32_t x = columns.first; x < columns.end;) {
        const SourceRun<P> run = sourceRun(source, x, y, columns.end);
        const P* from = run.pixels ? run.pixels : &source.fill;
        for (std::int32_t i = 0; i < run.length; ++i) {
            pixel(from[std::ptrdiff_t{i} * run.step], *to++, x + i);
        }
        x += run.length;
    }
}

template <class P>
typename P::Component added(typename P::Component c, float v) {
    return StagePixel<P>::hold(static_cast<float>(c) + v);
}

}  // namespace

template <class P>
void VxRGBNoiseProc<P>::pre() {
    if (sparseness >= 1.0f) return;
    blurring = false;
    if (!(largestSoftness(softX, alpha) > 0.0f) && !(largestSoftness(softY, alpha) > 0.0f)) return;
    blurring = true;
    if (mode == Mode::Colour) {
        makeColourNoise();
    } else {
        makeGreyNoise();
    }
}

template <class P>
void VxRGBNoiseProc<P>::makeColourNoise() {
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    colourNoise.allocateRegion(left, top, right, bottom, Contents::Zero);
    if (!colourNoise.data) return raiseOutOfMemory(this->interrupt);
    VxRGBANoiseGen generator;
    giveRun(generator, *this, seed);
    generator.alpha = alpha;
    for (int k = 0; k < 4; ++k) {
        generator.scale[k] = (amountMax[k] - amountMin[k]) * StagePixel<P>::kWhite;
        generator.blurX[k] = softX[k];
        generator.blurY[k] = softY[k];
    }
    generator.process(colourNoise);
}

template <class P>
void VxRGBNoiseProc<P>::makeGreyNoise() {
    constexpr float kWhite = StagePixel<P>::kWhite;
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    greyNoise.allocateRegion(left, top, right, bottom, Contents::Zero);
    if (!greyNoise.data) return raiseOutOfMemory(this->interrupt);
    VxNoiseGen generator;
    giveRun(generator, *this, seed);
    generator.scale = amountMax[0] * kWhite - amountMin[0] * kWhite;
    generator.blurX = softX[0];
    generator.blurY = softY[0];
    generator.process(greyNoise);
}

template <class P>
void VxRGBNoiseProc<P>::run() {
    if (sparseness >= 1.0f) return;
    if (mode == Mode::Grey) {
        runGrey();
    } else {
        runColour();
    }
}

template <class P>
void VxRGBNoiseProc<P>::post() {
    if (sparseness >= 1.0f) return;
    greyNoise.clear();
    colourNoise.clear();
}

template <class P>
void VxRGBNoiseProc<P>::runGrey() {
    constexpr float kWhite = StagePixel<P>::kWhite;
    const auto mean = [](const float(&amounts)[4]) {
        return (amounts[0] * kWhite + amounts[1] * kWhite + amounts[2] * kWhite) / 3.0f;
    };
    const float lo = mean(amountMin);
    const float hi = mean(amountMax);
    const DeadBand band = deadBand(sparseness, std::max(std::fabs(lo), std::fabs(hi)));
    const float factor = (hi - lo) * kHashStep;
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const ChannelInt* soft = blurring ? greyNoise.writeAt(columns.first, y) : nullptr;
        std::uint32_t n = pixelNumber(columns.first, y);
        overRow(*this->source, this->target->writeAt(columns.first, y), y, columns,
                [&](const P& from, P& to, std::int32_t) {
                    const float raw =
                        soft ? static_cast<float>((soft++)->c[0]) : hashValue(n) * factor;
                    const float v = band(raw + lo);
                    n += kColumnStep;
                    P result = from;
                    for (int k = 0; k < 3; ++k) result.c[k] = added<P>(from.c[k], v);
                    if (alpha) result.c[3] = added<P>(from.c[3], v);
                    to = result;
                });
    }
}

template <class P>
void VxRGBNoiseProc<P>::runColour() {
    constexpr float kWhite = StagePixel<P>::kWhite;
    const int components = alpha ? 4 : 3;
    float lo[4];
    float factor[4];
    float reach = 0.0f;
    for (int k = 0; k < components; ++k) {
        lo[k] = amountMin[k] * kWhite;
        const float hi = amountMax[k] * kWhite;
        factor[k] = (hi - lo[k]) * kHashStep;
        reach = std::max({reach, std::fabs(lo[k]), std::fabs(hi)});
    }
    const DeadBand band = deadBand(sparseness, reach);
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const RgbaInt* soft = blurring ? colourNoise.writeAt(columns.first, y) : nullptr;
        std::uint32_t n = pixelNumber(columns.first, y);
        overRow(*this->source, this->target->writeAt(columns.first, y), y, columns,
                [&](const P& from, P& to, std::int32_t) {
                    P result = from;
                    for (int k = 0; k < components; ++k) {
                        const float raw =
                            soft ? static_cast<float>(soft->c[k])
                                 : hashValue(n + static_cast<std::uint32_t>(k)) * factor[k];
                        result.c[k] = added<P>(from.c[k], band(raw + lo[k]));
                    }
                    if (soft) ++soft;
                    n += kColumnStep;
                    to = result;
                });
    }
}

template class VxRGBNoiseProc<Rgba8>;
template class VxRGBNoiseProc<RgbaS214>;

}  // namespace ruvex
