#include "stages/signal_rows.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/angles.h"
#include "stages/kernels/row_kernels.h"
#include "stages/source_runs.h"
#include "stages/stage_pixel.h"
#include "stages/threshold.h"

namespace ruvex {
namespace {

// The range of the random start on the noise curve, which the seed determines.
constexpr float kPlaceSpread = 100.0f;

// The bands of electromagnetic interference: the number of noise cells over the picture's height,
// the octaves, and the distance between the seeds of two frames.
constexpr float kBandsInPicture = 25.0f;
constexpr std::int32_t kBandOctaves = 2;
constexpr std::uint32_t kBandsSeedStep = 20;

// The envelope of the edge distortion over the picture's height: half a sine wave of this
// amplitude, clamped to 1.
constexpr float kBowHeight = 3.0f;

bool inColour(const SignalParameters& signal) {
    return signal.tvType != TvType::BlackAndWhite && signal.tvType != TvType::Tint;
}

template <class P>
std::int32_t luminance(const P& pixel) {
    return (std::int32_t{pixel.c[0]} + pixel.c[1] + pixel.c[2]) / 3;
}

// Replaces red, green and blue of a row by the tables' entries.
template <class P>
void lookUp(const ToneTables<P>& tables, P* pixels, std::int32_t count) {
    using Pixel = StagePixel<P>;
    using Component = typename P::Component;
    for (std::int32_t i = 0; i < count; ++i) {
        P& pixel = pixels[i];
        pixel.c[0] = static_cast<Component>(tables.lutRed[Pixel::clamp(std::int32_t{pixel.c[0]})]);
        pixel.c[1] =
            static_cast<Component>(tables.lutGreen[Pixel::clamp(std::int32_t{pixel.c[1]})]);
        pixel.c[2] = static_cast<Component>(tables.lutBlue[Pixel::clamp(std::int32_t{pixel.c[2]})]);
    }
}

}  // namespace

float edgeAmount(const SignalParameters& signal) {
    return stageAmount(signal.breakup, signal.edgeDistortionMax, signal.edgeThreshold);
}

bool gunsApart(const SignalParameters& signal) {
    const float offsets[] = {signal.gunRedX,   signal.gunRedY,  signal.gunGreenX,
                             signal.gunGreenY, signal.gunBlueX, signal.gunBlueY};
    return inColour(signal) &&
           std::any_of(std::begin(offsets), std::end(offsets),
                       [](float offset) { return !(std::fabs(offset) < 1.0f); });
}

template <class P>
SignalRows<P>::SignalRows(const SignalParameters& signal, const ToneTables<P>& tables,
                          const VxTexture<P>& source, std::int32_t longest)
    : signal_(signal),
      tables_(tables),
      source_(source),
      edgeAmount_(ruvex::edgeAmount(signal)),
      saturation_(signal.colour > 0.0f ? signal.colour : 0.0f),
      loss_(
          colourLoss(stageAmount(signal.breakup, signal.colourDegradeMax, signal.colourThreshold))),
      height_(signal.height - static_cast<float>(signal.originY)),
      guns_(gunsApart(signal)),
      longest_(longest) {
    auto seed = static_cast<std::uint32_t>(signal.seed);
    phase_ = uniform(seed) * kPlaceSpread + signal.edgePhase;
    if (guns_) gunRows_.reset(new (std::nothrow) P[3 * static_cast<std::size_t>(longest)]);
    usable_ = !guns_ || gunRows_;
}

template <class P>
float SignalRows<P>::interferenceGain(float y) const {
    if (!(signal_.emInterference > 0.0f)) return 1.0f;
    // Every row starts with the same seed, so the random offset is the same in the whole frame, and
    // the interference forms smooth bands.
    std::uint32_t seed = static_cast<std::uint32_t>(signal_.seed) +
                         static_cast<std::uint32_t>(signal_.sourceFrame) * kBandsSeedStep;
    const float place = uniform(seed) * kPlaceSpread + y / (height_ / kBandsInPicture);
    return signal_.noiseTable->fractalNoise(place, kBandOctaves) * signal_.emInterference + 1.0f;
}

template <class P>
typename SignalRows<P>::Row SignalRows<P>::rowState(std::int32_t row) const {
    const auto y = static_cast<float>(row);
    Row state{0, interferenceGain(y)};
    if (edgeAmount_ == 0.0f) return state;
    const float place =
        (y - static_cast<float>(signal_.verticalOffset)) * signal_.edgeJaggedness / height_ +
        phase_;
    const float n = signal_.noiseTable->fractalNoise(place, signal_.edgeOctaves);
    const float bow = static_cast<float>(maths::sin(y * kHalfTurn / height_)) * kBowHeight;
    // No displacement in the picture's first and last rows and in the margins.
    const float envelope = bow > 0.0f ? std::min(bow, 1.0f) : 0.0f;
    state.shift = truncateToInt(std::fabs(n) * envelope * edgeAmount_);
    return state;
}

template <class P>
void SignalRows<P>::make(std::int32_t y, Span columns, P* to) {
    const Row row = rowState(y);
    const std::int32_t x = wrapAdd(columns.first, row.shift);
    const std::int32_t count = columns.end - columns.first;
    // The saturation does not apply to the colours of a tint.
    float saturation = 1.0f;
    if (!inColour(signal_)) {
        grey(y, x, count, to);
    } else {
        saturation = saturation_;
        if (guns_) {
            guns(y, x, count, to);
        } else {
            colour(y, x, count, to);
        }
        if (!tables_.identity) {
            lookUp(tables_, to, count);
        } else if (guns_ || !copies()) {
            bestRowKernels<P>().clampToRange(to, count, to);
        }
    }
    if (saturation == 1.0f && row.gain == 1.0f) return;
    bestRowKernels<P>().saturate(to, count, saturation, row.gain);
}

// Black and white, or a tint: the luminance of a pixel determines its colour.
template <class P>
void SignalRows<P>::grey(std::int32_t y, std::int32_t x, std::int32_t count, P* to) const {
    const P* const tones = tables_.tintTable.get();
    const std::int32_t* const greys = tables_.lutMono.get();
    overRuns(source_, x, y, count,
             [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                 for (std::int32_t i = 0; i < length; ++i) {
                     const P& pixel = from[std::ptrdiff_t{i} * step];
                     const std::int32_t l = StagePixel<P>::clamp(luminance(pixel));
                     const auto alpha = pixel.c[3];
                     if (greys) {
                         const auto tone = static_cast<typename P::Component>(greys[l]);
                         to[done + i] = {{tone, tone, tone, alpha}};
                     } else {
                         to[done + i] = tones[l];
                         to[done + i].c[3] = alpha;
                     }
                 }
             });
}

template <class P>
void SignalRows<P>::colour(std::int32_t y, std::int32_t x, std::int32_t count, P* to) const {
    overRuns(source_, x, y, count,
             [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                 P* const out = to + done;
                 const P* const line = inLine(from, step, length, out);
                 if (copies()) {
                     bestRowKernels<P>().clampToRange(line, length, out);
                 } else {
                     bestRowKernels<P>().loseColour(line, length, loss_, out);
                 }
             });
}

template <class P>
void SignalRows<P>::guns(std::int32_t y, std::int32_t x, std::int32_t count, P* to) {
    const auto fy = static_cast<float>(y);
    P* const red = gunRows_.get();
    P* const green = red + longest_;
    P* const blue = green + longest_;
    readGun(0, signal_.gunRedX, truncateToInt(fy - signal_.gunRedY), x, count, red);
    readGun(1, signal_.gunGreenX, truncateToInt(fy - signal_.gunGreenY), x, count, green);
    readGun(2, signal_.gunBlueX, truncateToInt(fy - signal_.gunBlueY), x, count, blue);
    bestRowKernels<P>().loseColourApart(red, green, blue, count, loss_, to);
}

template <class P>
void SignalRows<P>::readGun(int gun, float offsetX, std::int32_t y, std::int32_t x,
                            std::int32_t count, P* to) {
    GunColumns& columns = gunColumns_[gun];
    columns.startRow(offsetX, x, count);
    std::int32_t begin = 0;
    for (std::size_t number = 0; begin < count; ++number) {
        const GunColumns::Run run = columns.run(number, begin);
        overRuns(source_, run.first, y, run.length,
                 [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                     P* const out = to + begin + done;
                     const P* const line = inLine(from, step, length, out);
                     if (line != out) std::copy_n(line, length, out);
                 });
        begin += run.length;
    }
}

template class SignalRows<Rgba8>;
template class SignalRows<RgbaS214>;

}  // namespace ruvex
