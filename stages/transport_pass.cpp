#include "stages/transport_pass.h"

#include <algorithm>
#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/angles.h"
#include "stages/noise_row.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

// The range of a row's random start on the noise curve, and the octaves of the noise.
constexpr float kTapeNoiseSpread = 1000.0f;
constexpr std::int32_t kTapeNoiseOctaves = 2;

// A winding tape shows bands of tears and streaks. As fractions of the picture's height: half the
// height of a band is 1/20, the distance between bands 1/5, their trembling up to 1/250.
constexpr int kBands = 6;
constexpr float kBandsInHeight = 5.0f;
constexpr float kBandHalfPart = 20.0f;
constexpr float kTremblePart = 250.0f;
// Bands move up with the speed: at normal speed by 1/10 of the height.
constexpr float kSpeedPart = 10.0f;
// The direction in which half of a band is displaced follows noise with a cell of ten frames.
constexpr float kFramesOfSign = 10.0f;
constexpr float kSignSpread = 100.0f;
// The distance between the seeds of two frames.
constexpr std::uint32_t kWindingSeedStep = 200;
constexpr std::uint32_t kSlowSeedStep = 10;

// The bright streak of a band: 1/3 of the band's rows. Its light is half a sine wave, 2/49 of the
// picture's height long; negative values count as 0.
constexpr float kBrightPart = 3.0f;
constexpr float kBrightCells = 35.0f;
constexpr double kBrightLeast = 0.2;  // weaker specks are not drawn
constexpr double kBowPeak = 1.5;
constexpr float kBowPart = 49.0f;
constexpr float kBowLead = 0.020408163f;  // 1/49: distance from the wave's start to the centre
// The thin streak: 1/30 of the band's rows, with only the strongest specks.
constexpr float kThinPart = 30.0f;
constexpr float kThinCells = 20.0f;
constexpr double kThinLeast = 0.8;
constexpr float kThinGain = 3.0f;

// Slow play shows a second image, displaced by 1/150 of the width and stronger in every other
// frame.
constexpr float kDoublePart = 150.0f;
constexpr float kDoubleOdd = 0.6f;
constexpr float kDoubleEven = 0.4f;
// In the first frames of slow play a tear moves up the picture by 1/100 of the height per frame. It
// starts at 0.6 of the height and, after five frames, again at 0.3.
constexpr std::int32_t kTearFrames = 10;
constexpr std::int32_t kTearRestart = 5;
constexpr float kTearFrom = 0.6f;
constexpr float kTearFromAgain = 0.3f;
constexpr double kTearStep = 0.01;
constexpr float kTearHalfPart = 15.0f;
constexpr float kTearShift = 0.5f;  // displacement, fraction of half the tear's height
constexpr float kTearMix = 0.25f;
// Noise in the top 1/5 of the picture, strongest at the upper edge.
constexpr float kTopPart = 0.2f;
constexpr float kTopCells = 10.0f;
constexpr float kTopStrength = 0.5f;

// A tear: the largest displacement of its two halves, and the amount by which red and blue swap.
struct Tear {
    std::int32_t centre;
    std::int32_t half;
    float shiftTop;
    float shiftBottom;
    float mix;
};

float uniformWithin(std::uint32_t& seed, float low, float high) {
    return uniform(seed) * (high - low) + low;
}

template <class P>
class Transport {
public:
    Transport(const SignalParameters& signal, float scaleY, const VxTexture<P>& source,
              VxTexture<P>& target, Span rows, Span columns, InterruptionRecord* interrupt)
        : signal_(signal),
          scaleY_(scaleY),
          source_(source),
          target_(target),
          rows_(rows),
          columns_(columns),
          interrupt_(interrupt),
          width_(signal.width - static_cast<float>(signal.originX)),
          height_(signal.height - static_cast<float>(signal.originY)),
          noiseRow_(columns) {}

    bool usable() const { return noiseRow_.usable(); }

    void wind();
    void playSlowly();

private:
    std::int32_t bandHalf() const { return truncateToInt(height_ / kBandHalfPart); }
    std::int32_t bandCentre(int band, std::uint32_t& seed) const;
    float sign(std::uint32_t& seed) const;
    void tear(const Tear& tear);
    void tearRow(std::int32_t y, float shift, float swap);
    template <class Gain>
    void streak(Span rows, float cells, double least, std::uint32_t& seed, Gain gain);
    void brightStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed);
    void thinStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed);
    void doubleImage(float weight);
    void slowTear();
    void topNoise(std::uint32_t& seed);

    Span rowsWithin(std::int32_t first, std::int32_t end) const {
        return {std::clamp(first, rows_.first, rows_.end), std::clamp(end, rows_.first, rows_.end)};
    }
    // The rows from centre - half to centre + half of a streak, each end truncated.
    Span streakRows(std::int32_t centre, float half) const {
        const auto c = static_cast<float>(centre);
        return rowsWithin(truncateToInt(c - half), truncateToInt(c + half));
    }
    const P& read(std::int32_t x, std::int32_t y) const {
        const P* pixel = source_.pixelAt(x, y);
        return pixel ? *pixel : source_.fill;
    }
    static void blendWhite(P& pixel, float f) {
        for (int k = 0; k < 3; ++k) {
            const auto c = static_cast<float>(pixel.c[k]);
            pixel.c[k] = StagePixel<P>::clamp((StagePixel<P>::kWhite - c) * f + c);
        }
    }
    // The noise of a row's columns, with `cells` noise cells across the picture's width.
    const float* noiseAlong(float cells, float start) {
        return noiseRow_.make(*signal_.noiseTable, kTapeNoiseOctaves,
                              [&](float x) { return x / (width_ * scaleY_ / cells) + start; });
    }
    bool stopped() const { return interruptCheck(interrupt_); }

    const SignalParameters& signal_;
    float scaleY_;
    const VxTexture<P>& source_;
    VxTexture<P>& target_;
    Span rows_;
    Span columns_;
    InterruptionRecord* interrupt_;
    float width_;
    float height_;
    NoiseRow noiseRow_;
};

template <class P>
std::int32_t Transport<P>::bandCentre(int band, std::uint32_t& seed) const {
    const float tremble = height_ / kTremblePart;
    const float half = static_cast<float>(bandHalf());
    const auto originY = static_cast<float>(signal_.originY);
    const float position = static_cast<float>(band) * height_ / kBandsInHeight + originY +
                           uniformWithin(seed, -tremble, tremble) -
                           height_ * signal_.playSpeedAtStart / kSpeedPart;
    const std::int32_t centre = truncateToInt(position);
    // A band that has left the picture at the top reappears below the last one, but only once: at
    // high speeds it may have moved further and is not visible.
    if (static_cast<float>(centre) < originY - half) {
        return truncateToInt(height_ * static_cast<float>(kBands) / kBandsInHeight +
                             static_cast<float>(centre));
    }
    return centre;
}

template <class P>
float Transport<P>::sign(std::uint32_t& seed) const {
    const float start = uniform(seed) * kSignSpread;
    const float place = static_cast<float>(signal_.sourceFrameIndex) / kFramesOfSign + start;
    return signal_.noiseTable->fractalNoise(place, kTapeNoiseOctaves) > 0.0f ? 1.0f : -1.0f;
}

template <class P>
void Transport<P>::wind() {
    std::uint32_t places = static_cast<std::uint32_t>(signal_.sourceFrameIndex) * kWindingSeedStep +
                           static_cast<std::uint32_t>(signal_.seed);
    auto signs = static_cast<std::uint32_t>(signal_.seed);
    const std::int32_t half = bandHalf();
    for (int band = 0; band < kBands; ++band) {
        if (stopped()) return;
        const std::int32_t centre = bandCentre(band, places);
        const float signTop = sign(signs);
        const float signBottom = sign(signs);
        const auto reach = static_cast<float>(half);
        tear({centre, half, reach * signTop * scaleY_, reach * signBottom * scaleY_, 1.0f});
        brightStreak(centre, half, places);
        thinStreak(centre, half, places);
    }
}

template <class P>
void Transport<P>::tear(const Tear& tear) {
    const std::int32_t low = saturate(std::int64_t{tear.centre} - tear.half);
    const std::int32_t high = saturate(std::int64_t{tear.centre} + tear.half);
    const auto b = static_cast<float>(tear.half);
    const Span band = rowsWithin(low, high);
    for (std::int32_t y = band.first; y < band.end; ++y) {
        if (stopped()) return;
        const bool upper = y <= tear.centre;
        // 0 at the edge of the tear, 1 at its centre.
        const float depth = static_cast<float>(upper ? y - low : high - y) / b;
        const float shift = (upper ? tear.shiftTop : tear.shiftBottom) * (depth * depth);
        const float swap = upper ? tear.mix * static_cast<float>(y - low) / b : 0.0f;
        tearRow(y, shift, swap);
    }
}

// Displaces a row along X and swaps red and blue by the fraction `swap`, 0 to 1.
template <class P>
void Transport<P>::tearRow(std::int32_t y, float shift, float swap) {
    P* to = target_.writeAt(columns_.first, y);
    for (std::int32_t x = columns_.first; x < columns_.end; ++x, ++to) {
        const P& s = read(truncateToInt(static_cast<float>(x) + shift), y);
        const auto mixed = [&](std::int32_t from, std::int32_t other) {
            return storeTruncated<typename P::Component>(static_cast<float>(other - from) * swap +
                                                         static_cast<float>(from));
        };
        to->c[0] = mixed(s.c[0], s.c[2]);
        to->c[1] = s.c[1];
        to->c[2] = mixed(s.c[2], s.c[0]);
    }
}

// Blends the rows with white where noise * gain(y) is above `least`; the noise has `cells` cells
// across the picture's width.
template <class P>
template <class Gain>
void Transport<P>::streak(Span rows, float cells, double least, std::uint32_t& seed, Gain gain) {
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (stopped()) return;
        const float start = uniform(seed) * kTapeNoiseSpread;
        const float rowGain = gain(static_cast<float>(y));
        const float* noise = noiseAlong(cells, start);
        P* to = target_.writeAt(columns_.first, y);
        for (std::int32_t i = 0; i < columns_.end - columns_.first; ++i) {
            const float f = std::min(std::fabs(noise[i]) * rowGain, 1.0f);
            if (f > least) blendWhite(to[i], f);
        }
    }
}

template <class P>
void Transport<P>::brightStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed) {
    const float length = height_ * 2.0f / kBowPart;
    const float begin = static_cast<float>(centre) - height_ * kBowLead;
    const Span rows = streakRows(centre, static_cast<float>(half) / kBrightPart);
    streak(rows, kBrightCells, kBrightLeast, seed, [&](float y) {
        const double bow = maths::sin((y - begin) * kHalfTurn / length) * kBowPeak;
        return static_cast<float>(bow > 0.0 ? bow : 0.0);
    });
}

template <class P>
void Transport<P>::thinStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed) {
    const Span rows = streakRows(centre, static_cast<float>(half) / kThinPart);
    streak(rows, kThinCells, kThinLeast, seed, [](float) { return kThinGain; });
}

template <class P>
void Transport<P>::playSlowly() {
    std::uint32_t seed = static_cast<std::uint32_t>(signal_.seed) +
                         static_cast<std::uint32_t>(signal_.framesAtLowSpeed) * kSlowSeedStep;
    doubleImage((signal_.framesAtLowSpeed & 1) != 0 ? kDoubleOdd : kDoubleEven);
    slowTear();
    topNoise(seed);
}

template <class P>
void Transport<P>::doubleImage(float weight) {
    const float distance = width_ * scaleY_ / kDoublePart;
    for (std::int32_t y = rows_.first; y < rows_.end; ++y) {
        if (stopped()) return;
        P* to = target_.writeAt(columns_.first, y);
        for (std::int32_t x = columns_.first; x < columns_.end; ++x, ++to) {
            const P& a = read(x, y);
            const P& b = read(truncateToInt(static_cast<float>(x) - distance), y);
            for (int k = 0; k < 3; ++k) {
                const std::int32_t from = a.c[k];
                to->c[k] = storeTruncated<typename P::Component>(
                    static_cast<float>(b.c[k] - from) * weight + static_cast<float>(from));
            }
        }
    }
}

template <class P>
void Transport<P>::slowTear() {
    const std::int32_t frames = signal_.framesAtLowSpeed;
    if (frames >= kTearFrames) return;
    const float start = frames < kTearRestart ? kTearFrom : kTearFromAgain;
    const auto originY = static_cast<float>(signal_.originY);
    const std::int32_t centre =
        truncateToInt(height_ * start + originY - height_ * kTearStep * frames);
    const std::int32_t half = truncateToInt(height_ / kTearHalfPart);
    const float shift = static_cast<float>(half) * scaleY_ * kTearShift;
    tear({centre, half, shift, shift, kTearMix});
}

template <class P>
void Transport<P>::topNoise(std::uint32_t& seed) {
    const auto originY = static_cast<float>(signal_.originY);
    const std::int32_t first = truncateToInt(originY);
    const std::int32_t end = truncateToInt(height_ * kTopPart + originY);
    const auto span = static_cast<float>(end - first);
    const Span rows = rowsWithin(first, end);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (stopped()) return;
        const float start = uniform(seed) * kTapeNoiseSpread;
        const float fade =
            static_cast<float>(maths::cos(static_cast<float>(y) * kQuarterTurn / span)) *
            kTopStrength;
        const float* noise = noiseAlong(kTopCells, start);
        P* to = target_.writeAt(columns_.first, y);
        for (std::int32_t i = 0; i < columns_.end - columns_.first; ++i) {
            const float f = noise[i] * fade;
            blendWhite(to[i], f > 0.0f ? std::min(f, 1.0f) : 0.0f);
        }
    }
}

}  // namespace

bool transportActs(const SignalParameters& signal) {
    return !signal.dvdMode &&
           (signal.playState == PlayState::Winding || signal.playState == PlayState::Slow);
}

template <class P>
void runTransportPass(const SignalParameters& signal, float scaleY, const VxTexture<P>& source,
                      VxTexture<P>& target, Span rows, Span columns,
                      InterruptionRecord* interrupt) {
    if (!transportActs(signal)) return;
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    Transport<P> transport(signal, scaleY, source, target, rows, columns, interrupt);
    if (!transport.usable()) return raiseOutOfMemory(interrupt);
    if (signal.playState == PlayState::Winding) transport.wind();
    if (signal.playState == PlayState::Slow) transport.playSlowly();
}

template void runTransportPass(const SignalParameters&, float, const VxTexture<Rgba8>&,
                               VxTexture<Rgba8>&, Span, Span, InterruptionRecord*);
template void runTransportPass(const SignalParameters&, float, const VxTexture<RgbaS214>&,
                               VxTexture<RgbaS214>&, Span, Span, InterruptionRecord*);

}  // namespace ruvex
