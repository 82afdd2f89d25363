#include "stages/signal_pass.h"

#include <algorithm>
#include <cmath>

#include "imaging/gradient_noise.h"
#include "imaging/maths.h"
#include "imaging/random.h"
#include "imaging/wrap.h"
#include "stages/source_runs.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

constexpr std::int32_t kBlackAndWhite = 1;
constexpr std::int32_t kTint = 2;

// The limits of the stages of colour loss, compared in double.
constexpr double kSwapEnds = 0.2;
constexpr double kDrainEnds = 0.4;

// What holds for the whole pass.
struct PassState {
    float edgeAmount;
    float phase;
    float saturation;
    ColourLoss loss;
    float height;  // of the picture
};

// What a row knows.
struct RowState {
    std::int32_t shift;  // columns further right that the row reads
    float gain;          // of the interference
};

PassState passState(const SignalParameters& signal) {
    auto seed = static_cast<std::uint32_t>(signal.seed);
    return {
        .edgeAmount = stageAmount(signal.breakup, signal.edgeDistortionMax, signal.edgeThreshold),
        .phase = uniform(seed) * 100.0f + signal.edgePhase,
        .saturation = signal.colour > 0.0f ? signal.colour : 0.0f,
        .loss = colourLoss(
            stageAmount(signal.breakup, signal.colourDegradeMax, signal.colourThreshold)),
        .height = signal.height - static_cast<float>(signal.originY)};
}

float interferenceGain(const SignalParameters& signal, float y, float height) {
    if (!(signal.emInterference > 0.0f)) return 1.0f;
    // The seed starts afresh on every row: the offset is the same all over a frame, and the
    // interference a smooth pattern of bands.
    std::uint32_t seed = static_cast<std::uint32_t>(signal.seed) +
                         static_cast<std::uint32_t>(signal.sourceFrame) * 20u;
    const float place = uniform(seed) * 100.0f + y / (height / 25.0f);
    return signal.noiseTable->fractalNoise(place, 2) * signal.emInterference + 1.0f;
}

RowState rowState(const SignalParameters& signal, const PassState& pass, std::int32_t row) {
    const auto y = static_cast<float>(row);
    RowState state{0, interferenceGain(signal, y, pass.height)};
    if (pass.edgeAmount == 0.0f) return state;
    const float place =
        (y - static_cast<float>(signal.verticalOffset)) * signal.edgeJaggedness / pass.height +
        pass.phase;
    const float n = signal.noiseTable->fractalNoise(place, signal.edgeOctaves);
    const float bow = static_cast<float>(maths::sin(y * 3.1415927f / pass.height)) * 3.0f;
    // The picture's first and last rows stay straight, and so do the margins.
    const float envelope = bow > 0.0f ? std::min(bow, 1.0f) : 0.0f;
    state.shift = truncateToInt(std::fabs(n) * envelope * pass.edgeAmount);
    return state;
}

template <class P>
typename P::Component gained(std::int32_t value, float gain) {
    return StagePixel<P>::hold(static_cast<float>(value) * gain);
}

template <class P>
std::int32_t luminance(const P& pixel) {
    return (std::int32_t{pixel.c[0]} + pixel.c[1] + pixel.c[2]) / 3;
}

// A colour on its way through the tube, as integers.
struct Colour {
    std::int32_t r, g, b;
};

// Saturation and interference, after the tables.
template <class P>
P finishColour(const ToneTables<P>& tables, const Colour& colour, typename P::Component alpha,
               float saturation, float gain) {
    using Pixel = StagePixel<P>;
    const std::int32_t tones[3] = {tables.lutRed[Pixel::hold(colour.r)],
                                   tables.lutGreen[Pixel::hold(colour.g)],
                                   tables.lutBlue[Pixel::hold(colour.b)]};
    const std::int32_t l = (tones[0] + tones[1] + tones[2]) / 3;
    const auto grey = static_cast<float>(l);
    P result;
    for (int k = 0; k < 3; ++k) {
        const std::int32_t v = truncateToInt(static_cast<float>(tones[k] - l) * saturation + grey);
        result.c[k] = gained<P>(v, gain);
    }
    result.c[3] = alpha;
    return result;
}

// A part k of the way from `from` to `to`, truncated.
std::int32_t towards(std::int32_t from, std::int32_t to, float k) {
    return truncateToInt(static_cast<float>(to - from) * k + static_cast<float>(from));
}

// The loss of colour where the guns are in line. Blue is worked out from the new red, so that just
// before the swap ends both channels carry what was blue.
Colour degraded(const Colour& c, const ColourLoss& loss) {
    const std::int32_t average = (c.r + c.g + c.b) / 3;
    const float k = loss.weight;
    switch (loss.stage) {
        case ColourLoss::Stage::Grey:
            return {average, average, average};
        case ColourLoss::Stage::Drain: {
            const std::int32_t r = towards(c.b, average, k);
            return {r, towards(c.g, average, k), towards(r, average, k)};
        }
        case ColourLoss::Stage::Swap: {
            const std::int32_t r = towards(c.r, c.b, k);
            return {r, c.g, towards(c.b, r, k)};
        }
        default:
            return c;
    }
}

// The same where each gun reads a pixel of its own; every channel is swapped with the other one of
// its own pixel.
template <class P>
Colour degradedGuns(const P& red, const P& green, const P& blue, const ColourLoss& loss) {
    const Colour c{red.c[0], green.c[1], blue.c[2]};
    const std::int32_t average = (c.r + c.g + c.b) / 3;
    const float k = loss.weight;
    switch (loss.stage) {
        case ColourLoss::Stage::Grey:
            return {average, average, average};
        case ColourLoss::Stage::Drain:
            return {towards(red.c[2], average, k), towards(c.g, average, k),
                    towards(blue.c[0], average, k)};
        case ColourLoss::Stage::Swap:
            return {towards(c.r, red.c[2], k), c.g, towards(c.b, blue.c[0], k)};
        default:
            return c;
    }
}

// Writes pixel(source) along a row that is read from column x + shift on.
template <class P, class Pixel>
void alongRow(const VxTexture<P>& source, VxTexture<P>& target, std::int32_t y, std::int32_t shift,
              Span columns, Pixel pixel) {
    P* const to = target.writeAt(columns.first, y);
    overRuns(source, wrapAdd(columns.first, shift), y, columns.end - columns.first,
             [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                 for (std::int32_t i = 0; i < length; ++i) {
                     to[done + i] = pixel(from[std::ptrdiff_t{i} * step]);
                 }
             });
}

template <class P>
const P& pixelOrFill(const VxTexture<P>& source, std::int32_t x, std::int32_t y) {
    const P* pixel = source.pixelAt(x, y);
    return pixel ? *pixel : source.fill;
}

bool gunsApart(const SignalParameters& signal) {
    const float offsets[] = {signal.gunRedX,   signal.gunRedY,  signal.gunGreenX,
                             signal.gunGreenY, signal.gunBlueX, signal.gunBlueY};
    return std::any_of(std::begin(offsets), std::end(offsets),
                       [](float offset) { return !(std::fabs(offset) < 1.0f); });
}

template <class P>
struct SignalRows {
    const SignalParameters& signal;
    const ToneTables<P>& tables;
    const VxTexture<P>& source;
    VxTexture<P>& target;
    Span columns;
    PassState pass;

    void mono(std::int32_t y, const RowState& row) const {
        alongRow(source, target, y, row.shift, columns, [&](const P& from) {
            const auto grey =
                gained<P>(tables.lutMono[StagePixel<P>::hold(luminance(from))], row.gain);
            return P{{grey, grey, grey, from.c[3]}};
        });
    }

    void tint(std::int32_t y, const RowState& row) const {
        alongRow(source, target, y, row.shift, columns, [&](const P& from) {
            P pixel = tables.tintTable[StagePixel<P>::hold(luminance(from))];
            for (int k = 0; k < 3; ++k) pixel.c[k] = gained<P>(pixel.c[k], row.gain);
            pixel.c[3] = from.c[3];
            return pixel;
        });
    }

    void colour(std::int32_t y, const RowState& row) const {
        alongRow(source, target, y, row.shift, columns, [&](const P& from) {
            const Colour lost = degraded({from.c[0], from.c[1], from.c[2]}, pass.loss);
            return finishColour<P>(tables, lost, from.c[3], pass.saturation, row.gain);
        });
    }

    void guns(std::int32_t y, const RowState& row) const {
        const auto fy = static_cast<float>(y);
        const std::int32_t ry = truncateToInt(fy - signal.gunRedY);
        const std::int32_t gy = truncateToInt(fy - signal.gunGreenY);
        const std::int32_t by = truncateToInt(fy - signal.gunBlueY);
        P* to = target.writeAt(columns.first, y);
        for (std::int32_t x = columns.first; x < columns.end; ++x) {
            const auto sx = static_cast<float>(wrapAdd(x, row.shift));
            const P& red = pixelOrFill(source, truncateToInt(sx - signal.gunRedX), ry);
            const P& green = pixelOrFill(source, truncateToInt(sx - signal.gunGreenX), gy);
            const P& blue = pixelOrFill(source, truncateToInt(sx - signal.gunBlueX), by);
            *to++ = finishColour<P>(tables, degradedGuns(red, green, blue, pass.loss), red.c[3],
                                    pass.saturation, row.gain);
        }
    }
};

}  // namespace

ColourLoss colourLoss(float amount) {
    const double d = amount;
    if (d > kDrainEnds) return {ColourLoss::Stage::Grey, amount};
    ColourLoss loss;
    if (d > 0.0) loss.stage = ColourLoss::Stage::Swap;
    if (d > kSwapEnds) loss.stage = ColourLoss::Stage::Drain;
    if (d < kDrainEnds && d > kSwapEnds) {
        const float t = (amount - 0.2f) / 0.2f;
        loss.weight = ((1.0f - t) * t + 1.0f) * t;
    } else if (d < kSwapEnds) {
        loss.weight = amount / 0.2f;
    } else {
        loss.weight = amount;
    }
    return loss;
}

template <class P>
void runSignalPass(const SignalParameters& signal, const ToneTables<P>& tables,
                   const VxTexture<P>& source, VxTexture<P>& target, Span rows, Span columns,
                   InterruptionRecord* interrupt) {
    if (columns.first >= columns.end) return;
    const SignalRows<P> work{signal, tables, source, target, columns, passState(signal)};
    const bool apart = gunsApart(signal);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(interrupt)) return;
        const RowState row = rowState(signal, work.pass, y);
        if (signal.tvType == kBlackAndWhite) {
            work.mono(y, row);
        } else if (signal.tvType == kTint) {
            work.tint(y, row);
        } else if (apart) {
            work.guns(y, row);
        } else {
            work.colour(y, row);
        }
    }
}

template void runSignalPass(const SignalParameters&, const ToneTables<Rgba8>&,
                            const VxTexture<Rgba8>&, VxTexture<Rgba8>&, Span, Span,
                            InterruptionRecord*);
template void runSignalPass(const SignalParameters&, const ToneTables<RgbaS214>&,
                            const VxTexture<RgbaS214>&, VxTexture<RgbaS214>&, Span, Span,
                            InterruptionRecord*);

}  // namespace ruvex
