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

// Noise has its place on a curve: the start of a row is drawn from this many units of it, two
// octaves deep.
constexpr float kTapeNoiseSpread = 1000.0f;
constexpr std::int32_t kTapeNoiseOctaves = 2;

// A winding tape shows bands of tears and streaks. Lengths are parts of the picture's height: a
// band half as high as a 20th of it, a fifth apart from the next, trembling by up to a 250th.
constexpr int kBands = 6;
constexpr float kBandsInHeight = 5.0f;
constexpr float kBandHalfPart = 20.0f;
constexpr float kTremblePart = 250.0f;
// At normal speed a band would stand a tenth of the height higher than on a tape at rest.
constexpr float kSpeedPart = 10.0f;
// Which way a half of a band is pulled follows noise that changes about once in ten frames.
constexpr float kFramesOfSign = 10.0f;
constexpr float kSignSpread = 100.0f;
// Neighbouring frames draw from seeds this far apart.
constexpr std::uint32_t kWindingSeedStep = 200;
constexpr std::uint32_t kSlowSeedStep = 10;

// The bright streak of a band: its rows are a third of the band's, and its light is a bow of half a
// sine wave, 2/49 of the picture's height long, cut off where it is below 0.
constexpr float kBrightPart = 3.0f;
constexpr float kBrightCells = 35.0f;
constexpr double kBrightLeast = 0.2;  // fainter specks are left out
constexpr double kBowPeak = 1.5;
constexpr float kBowPart = 49.0f;
constexpr float kBowLead = 0.020408163f;  // 1/49: the bow begins this far above the centre
// The thin streak: a 30th of the band's rows, of which only the strongest specks are seen.
constexpr float kThinPart = 30.0f;
constexpr float kThinCells = 20.0f;
constexpr double kThinLeast = 0.8;
constexpr float kThinGain = 3.0f;

// Slow play doubles the image, a 150th of the width aside. The shake of the heads: the second image
// is stronger in every other frame.
constexpr float kDoublePart = 150.0f;
constexpr float kDoubleOdd = 0.6f;
constexpr float kDoubleEven = 0.4f;
// For its first frames a tear runs up the picture, a hundredth of the height a frame. It begins at
// 0.6 of the height and, after five frames, once more at 0.3.
constexpr std::int32_t kTearFrames = 10;
constexpr std::int32_t kTearRestart = 5;
constexpr float kTearFrom = 0.6f;
constexpr float kTearFromAgain = 0.3f;
constexpr double kTearStep = 0.01;
constexpr float kTearHalfPart = 15.0f;
constexpr float kTearShift = 0.5f;  // in heights of a half of the tear
constexpr float kTearMix = 0.25f;
// Noise in the top fifth of the picture, strongest at the upper edge.
constexpr float kTopPart = 0.2f;
constexpr float kTopCells = 10.0f;
constexpr float kTopStrength = 0.5f;

// A tear: how far its two halves are pulled at their widest, and how much red and blue swap.
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
    // The rows of a streak of half height `half` about a centre, each end truncated.
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
    // The noise of a row's columns, with so many cells across the picture.
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
    // A band that has left at the top comes back below the last, but only once: at high speeds it
    // can be further up and stays out of sight.
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
        // From 0 at the edge of the tear to 1 at its centre.
        const float depth = static_cast<float>(upper ? y - low : high - y) / b;
        const float shift = (upper ? tear.shiftTop : tear.shiftBottom) * (depth * depth);
        const float swap = upper ? tear.mix * static_cast<float>(y - low) / b : 0.0f;
        tearRow(y, shift, swap);
    }
}

// Pulls a row sideways and swaps red and blue by a part of `swap`, 0 to 1.
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

// Whitens the rows by noise of `cells` across the picture, times gain(y), where that is above
// `least`.
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
