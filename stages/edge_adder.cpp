#include "stages/edge_adder.h"

#include <algorithm>
#include <cmath>

#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "stages/noise_row.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

constexpr std::int32_t kNoiseOctaves = 8;

// The part of a band that lies in the worker's rows.
Span heldTo(const Span& rows, std::int32_t first, std::int32_t end) {
    return {std::clamp(first, rows.first, rows.end), std::clamp(end, rows.first, rows.end)};
}

}  // namespace

template <class P>
void EdgeAdder<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    const float margin = static_cast<float>(-top) * 0.4f;
    std::uint32_t local =
        seedFromFloat(static_cast<float>(sourceFrame) * 100.0f + static_cast<float>(seed));
    const std::int32_t innerTop = truncateToInt(static_cast<float>(top) + margin);
    const std::int32_t innerBottom = truncateToInt(static_cast<float>(bottom) - margin);
    noiseRows(heldTo(rows, top, innerTop), columns, local);
    blackRows(heldTo(rows, innerTop, 0), columns);
    blackRows(heldTo(rows, wrapAdd(bottom, top), innerBottom), columns);
    noiseRows(heldTo(rows, innerBottom, bottom), columns, local);
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
    constexpr double kSpeck = 0.2;
    P pixel = black();
    if (!(std::fabs(f) > kSpeck)) return pixel;
    const auto c = StagePixel<P>::hold(f * StagePixel<P>::kWhite);
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
        const float r = uniform(local) * 1000.0f;
        if (!isRead(y)) continue;
        const float* noise = row.make(*noiseTable, kNoiseOctaves, [&](float x) {
            return x * 50.0f / static_cast<float>(columns.end) + r;
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

// Two white pulses on each side, a tenth of the margin wide.
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
    bar(a, a + 0.2f * m, kBlackBar);
    bar(a + 0.2f * m, a + 0.3f * m, kWhiteBar);
    bar(a + 0.3f * m, a + 0.4f * m, kBlackBar);
    bar(a + 0.4f * m, a + 0.5f * m, kWhiteBar);
    bar(b - 0.5f * m, b - 0.4f * m, kWhiteBar);
    bar(b - 0.4f * m, b - 0.3f * m, kBlackBar);
    bar(b - 0.3f * m, b - 0.2f * m, kWhiteBar);
    bar(b - 0.2f * m, b, kBlackBar);
    if (borderAlpha == BorderAlpha::Banded) return;
    const typename P::Component alpha = borderAlpha == BorderAlpha::Full ? kWhite : 0;
    alphaAcross(y, a, a + 0.5f * m, columns, alpha);
    alphaAcross(y, b - 0.5f * m, b, columns, alpha);
}

template class EdgeAdder<Rgba8>;
template class EdgeAdder<RgbaS214>;

}  // namespace ruvex
