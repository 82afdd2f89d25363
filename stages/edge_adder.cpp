#include "stages/edge_adder.h"

#include <algorithm>
#include <cmath>

#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "stages/noise_row.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

// The outer part of the margins above and below the picture has noise; the rest is black.
constexpr float kBorderNoisePart = 0.4f;
// The distance between the seeds of two frames; the range of a row's random start on the noise
// curve; and the length of the curve that a row covers.
constexpr float kBorderSeedStep = 100.0f;
constexpr float kBorderNoiseSpread = 1000.0f;
constexpr float kBorderNoiseCells = 50.0f;
constexpr std::int32_t kBorderNoiseOctaves = 8;
constexpr double kFaintestSpeck = 0.2;

// The sync pulses on the left, as fractions of the margin from its outer edge. The right side is a
// mirror image.
constexpr float kPulse1Begin = 0.2f, kPulse1End = 0.3f;
constexpr float kPulse2Begin = 0.4f, kPulse2End = 0.5f;

// The rows first .. end - 1 clipped to the worker's rows.
Span clampedTo(const Span& rows, std::int32_t first, std::int32_t end) {
    return {std::clamp(first, rows.first, rows.end), std::clamp(end, rows.first, rows.end)};
}

}  // namespace

template <class P>
void EdgeAdder<P>::paint(Span rows, Span columns) {
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    const float noiseHeight = static_cast<float>(-top) * kBorderNoisePart;
    std::uint32_t local =
        seedFromFloat(static_cast<float>(sourceFrame) * kBorderSeedStep + static_cast<float>(seed));
    const std::int32_t innerTop = truncateToInt(static_cast<float>(top) + noiseHeight);
    const std::int32_t innerBottom = truncateToInt(static_cast<float>(bottom) - noiseHeight);
    noiseRows(clampedTo(rows, top, innerTop), columns, local);
    blackRows(clampedTo(rows, innerTop, 0), columns);
    blackRows(clampedTo(rows, wrapAdd(bottom, top), innerBottom), columns);
    noiseRows(clampedTo(rows, innerBottom, bottom), columns, local);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        if (isRead(y)) syncBars(y, columns);
    }
}

template <class P>
P EdgeAdder<P>::black() const {
    P pixel{};
    if (borderAlpha == BorderAlpha::Full) pixel.c[3] = StagePixel<P>::kWhiteComponent;
    return pixel;
}

template <class P>
void EdgeAdder<P>::blackRows(Span band, Span columns) {
    for (std::int32_t y = band.first; y < band.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        if (!isRead(y)) continue;
        std::fill_n(this->target->writeAt(columns.first, y), columns.end - columns.first, black());
    }
}

template <class P>
P EdgeAdder<P>::noisePixel(float f) const {
    P pixel = black();
    if (!(std::fabs(f) > kFaintestSpeck)) return pixel;
    const auto c = StagePixel<P>::clamp(f * StagePixel<P>::kWhite);
    pixel.c[0] = pixel.c[1] = pixel.c[2] = c;
    if (borderAlpha == BorderAlpha::Banded) pixel.c[3] = c;
    return pixel;
}

template <class P>
void EdgeAdder<P>::noiseRows(Span band, Span columns, std::uint32_t& local) {
    if (band.first >= band.end) return;
    NoiseRow row(columns);
    if (!row.usable()) return raiseOutOfMemory(this->interrupt);
    for (std::int32_t y = band.first; y < band.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float r = uniform(local) * kBorderNoiseSpread;
        if (!isRead(y)) continue;
        const float* noise = row.make(*noiseTable, kBorderNoiseOctaves, [&](float x) {
            return x * kBorderNoiseCells / static_cast<float>(columns.end) + r;
        });
        P* to = this->target->writeAt(columns.first, y);
        for (std::int32_t i = 0; i < columns.end - columns.first; ++i) to[i] = noisePixel(noise[i]);
    }
}

template <class P>
void EdgeAdder<P>::fillAcross(std::int32_t y, float from, float to, Span columns, const P& pixel) {
    const std::int32_t first = std::clamp(truncateToInt(from), columns.first, columns.end);
    const std::int32_t end = std::clamp(truncateToInt(to), columns.first, columns.end);
    if (first < end) std::fill_n(this->target->writeAt(first, y), end - first, pixel);
}

template <class P>
void EdgeAdder<P>::alphaAcross(std::int32_t y, float from, float to, Span columns,
                               typename P::Component alpha) {
    const std::int32_t first = std::clamp(truncateToInt(from), columns.first, columns.end);
    const std::int32_t end = std::clamp(truncateToInt(to), columns.first, columns.end);
    for (std::int32_t x = first; x < end; ++x) this->target->writeAt(x, y)->c[3] = alpha;
}

// Two white pulses on each side, with black around them.
template <class P>
void EdgeAdder<P>::syncBars(std::int32_t y, Span columns) {
    constexpr auto kWhite = StagePixel<P>::kWhiteComponent;
    static constexpr P kBlackBar{};
    static constexpr P kWhiteBar{{kWhite, kWhite, kWhite, kWhite}};
    const auto m = static_cast<float>(-left);
    const auto a = static_cast<float>(columns.first);
    const auto b = static_cast<float>(columns.end);
    const auto bar = [&](float from, float to, const P& pixel) {
        fillAcross(y, from, to, columns, pixel);
    };
    bar(a, a + kPulse1Begin * m, kBlackBar);
    bar(a + kPulse1Begin * m, a + kPulse1End * m, kWhiteBar);
    bar(a + kPulse1End * m, a + kPulse2Begin * m, kBlackBar);
    bar(a + kPulse2Begin * m, a + kPulse2End * m, kWhiteBar);
    bar(b - kPulse2End * m, b - kPulse2Begin * m, kWhiteBar);
    bar(b - kPulse2Begin * m, b - kPulse1End * m, kBlackBar);
    bar(b - kPulse1End * m, b - kPulse1Begin * m, kWhiteBar);
    bar(b - kPulse1Begin * m, b, kBlackBar);
    if (borderAlpha == BorderAlpha::Banded) return;
    const typename P::Component alpha = borderAlpha == BorderAlpha::Full ? kWhite : 0;
    alphaAcross(y, a, a + kPulse2End * m, columns, alpha);
    alphaAcross(y, b - kPulse2End * m, b, columns, alpha);
}

template class EdgeAdder<Rgba8>;
template class EdgeAdder<RgbaS214>;

}  // namespace ruvex
