#include "stages/transport_pass.h"

#include <algorithm>
#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/noise_row.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

constexpr int kBands = 6;

// A tear: how far its two halves are pulled at their widest, and how much red and blue swap.
struct Tear {
    std::int32_t centre;
    std::int32_t half;
    float shiftTop;
    float shiftBottom;
    float mix;
};

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
    std::int32_t bandCentre(int band, std::uint32_t& seed) const;
    float sign(std::uint32_t& seed) const;
    void tear(const Tear& tear);
    void tearRow(std::int32_t y, float shift, float k);
    void brightStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed);
    void thinStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed);
    void doubleImage(float g);
    void slowTear();
    void topNoise(std::uint32_t& seed);

    Span heldRows(std::int32_t first, std::int32_t end) const {
        return {std::clamp(first, rows_.first, rows_.end), std::clamp(end, rows_.first, rows_.end)};
    }
    // The rows of a streak of half height `half` about a centre, each end truncated.
    Span streakRows(std::int32_t centre, float half) const {
        const auto c = static_cast<float>(centre);
        return heldRows(truncateToInt(c - half), truncateToInt(c + half));
    }
    const P& read(std::int32_t x, std::int32_t y) const {
        const P* pixel = source_.pixelAt(x, y);
        return pixel ? *pixel : source_.fill;
    }
    static void blendWhite(P& pixel, float f) {
        for (int k = 0; k < 3; ++k) {
            const auto c = static_cast<float>(pixel.c[k]);
            pixel.c[k] = StagePixel<P>::hold((StagePixel<P>::kWhite - c) * f + c);
        }
    }
    // The noise of a row's columns, with so many cells across the picture.
    const float* noiseAlong(float cells, float start) {
        return noiseRow_.make(*signal_.noiseTable, 2,
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
    const float jitter = height_ / 250.0f;
    const float half = static_cast<float>(truncateToInt(height_ / 20.0f));
    const auto originY = static_cast<float>(signal_.originY);
    const float position = static_cast<float>(band) * height_ / 5.0f + originY +
                           (uniform(seed) * (jitter - (-jitter)) + (-jitter)) -
                           height_ * signal_.playSpeedAtStart / 10.0f;
    const std::int32_t centre = truncateToInt(position);
    // One turn alone: at high speeds a band can go further and stays out of sight.
    if (static_cast<float>(centre) < originY - half) {
        return truncateToInt(height_ * 6.0f / 5.0f + static_cast<float>(centre));
    }
    return centre;
}

template <class P>
float Transport<P>::sign(std::uint32_t& seed) const {
    const float r = uniform(seed) * 100.0f + 0.0f;
    const float place = static_cast<float>(signal_.sourceFrameIndex) / 10.0f + r;
    return signal_.noiseTable->fractalNoise(place, 2) > 0.0f ? 1.0f : -1.0f;
}

template <class P>
void Transport<P>::wind() {
    std::uint32_t places = static_cast<std::uint32_t>(signal_.sourceFrameIndex) * 200u +
                           static_cast<std::uint32_t>(signal_.seed);
    auto signs = static_cast<std::uint32_t>(signal_.seed);
    const std::int32_t half = truncateToInt(height_ / 20.0f);
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
    const Span band = heldRows(low, high);
    for (std::int32_t y = band.first; y < band.end; ++y) {
        if (stopped()) return;
        const bool upper = y <= tear.centre;
        const float e = static_cast<float>(upper ? y - low : high - y) / b;
        const float shift = (upper ? tear.shiftTop : tear.shiftBottom) * (e * e);
        const float k = upper ? tear.mix * static_cast<float>(y - low) / b : 0.0f;
        tearRow(y, shift, k);
    }
}

// Pulls a row sideways and swaps red and blue by a part k.
template <class P>
void Transport<P>::tearRow(std::int32_t y, float shift, float k) {
    P* to = target_.writeAt(columns_.first, y);
    for (std::int32_t x = columns_.first; x < columns_.end; ++x, ++to) {
        const P& s = read(truncateToInt(static_cast<float>(x) + shift), y);
        const auto mixed = [&](std::int32_t from, std::int32_t other) {
            return storeTruncated<typename P::Component>(static_cast<float>(other - from) * k +
                                                         static_cast<float>(from));
        };
        to->c[0] = mixed(s.c[0], s.c[2]);
        to->c[1] = s.c[1];
        to->c[2] = mixed(s.c[2], s.c[0]);
    }
}

template <class P>
void Transport<P>::brightStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed) {
    constexpr double kLeast = 0.2;
    const float w49 = height_ * 2.0f / 49.0f;
    const float y49 = static_cast<float>(centre) - height_ * 0.020408163f;
    const Span rows = streakRows(centre, static_cast<float>(half) / 3.0f);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (stopped()) return;
        const float r = uniform(seed) * 1000.0f + 0.0f;
        const double bow = maths::sin((static_cast<float>(y) - y49) * 3.1415927f / w49) * 1.5;
        const auto envelope = static_cast<float>(bow > 0.0 ? bow : 0.0);
        const float* noise = noiseAlong(35.0f, r);
        P* to = target_.writeAt(columns_.first, y);
        for (std::int32_t i = 0; i < columns_.end - columns_.first; ++i) {
            const float f = std::min(std::fabs(noise[i]) * envelope, 1.0f);
            if (f > kLeast) blendWhite(to[i], f);
        }
    }
}

template <class P>
void Transport<P>::thinStreak(std::int32_t centre, std::int32_t half, std::uint32_t& seed) {
    constexpr double kLeast = 0.8;
    const Span rows = streakRows(centre, static_cast<float>(half) / 30.0f);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (stopped()) return;
        const float r = uniform(seed) * 1000.0f + 0.0f;
        const float* noise = noiseAlong(20.0f, r);
        P* to = target_.writeAt(columns_.first, y);
        for (std::int32_t i = 0; i < columns_.end - columns_.first; ++i) {
            const float f = std::min(std::fabs(noise[i] * 3.0f), 1.0f);
            if (f > kLeast) blendWhite(to[i], f);
        }
    }
}

template <class P>
void Transport<P>::playSlowly() {
    std::uint32_t seed = static_cast<std::uint32_t>(signal_.seed) +
                         static_cast<std::uint32_t>(signal_.framesAtLowSpeed) * 10u;
    // The shake of the heads, from frame to frame.
    doubleImage((signal_.framesAtLowSpeed & 1) != 0 ? 0.6f : 0.4f);
    slowTear();
    topNoise(seed);
}

template <class P>
void Transport<P>::doubleImage(float g) {
    const float distance = width_ * scaleY_ / 150.0f;
    for (std::int32_t y = rows_.first; y < rows_.end; ++y) {
        if (stopped()) return;
        P* to = target_.writeAt(columns_.first, y);
        for (std::int32_t x = columns_.first; x < columns_.end; ++x, ++to) {
            const P& a = read(x, y);
            const P& b = read(truncateToInt(static_cast<float>(x) - distance), y);
            for (int k = 0; k < 3; ++k) {
                const std::int32_t from = a.c[k];
                to->c[k] = storeTruncated<typename P::Component>(
                    static_cast<float>(b.c[k] - from) * g + static_cast<float>(from));
            }
        }
    }
}

template <class P>
void Transport<P>::slowTear() {
    const std::int32_t frames = signal_.framesAtLowSpeed;
    if (frames >= 10) return;
    const float start = frames < 5 ? 0.6f : 0.3f;
    const auto originY = static_cast<float>(signal_.originY);
    const std::int32_t centre = truncateToInt(height_ * start + originY - height_ * 0.01 * frames);
    const std::int32_t half = truncateToInt(height_ / 15.0f);
    const float shift = static_cast<float>(half) * scaleY_ * 0.5f;
    tear({centre, half, shift, shift, 0.25f});
}

template <class P>
void Transport<P>::topNoise(std::uint32_t& seed) {
    const auto originY = static_cast<float>(signal_.originY);
    const std::int32_t first = truncateToInt(originY);
    const std::int32_t end = truncateToInt(height_ * 0.2f + originY);
    const auto span = static_cast<float>(end - first);
    const Span rows = heldRows(first, end);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (stopped()) return;
        const float r = uniform(seed) * 1000.0f + 0.0f;
        const float fade =
            static_cast<float>(maths::cos(static_cast<float>(y) * 1.5707964f / span)) * 0.5f;
        const float* noise = noiseAlong(10.0f, r);
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
