// The picture without a signal, pixel by pixel, and its mix into the picture.

#pragma once

#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/signal_parameters.h"
#include "tests/stages/twins/snow_twin.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

inline float fractionTwin(std::uint32_t n) {
    return (1.0f - static_cast<float>(positionHash(n)) * 9.313226e-10f + 1.0f) * 0.5f;
}

template <class P>
class ShashTwin {
public:
    ShashTwin(TwinPicture<P>& picture, const SignalParameters& signal, float scaleY,
              const TwinArea& area)
        : picture_(picture), s_(signal), scaleY_(scaleY), area_(area) {}

    void draw(int type, int workers) {
        for (const TwinShare& share : twinShares(area_.top, area_.height(), workers)) {
            for (int y = share.first; type < 2 && y < share.end; ++y) {
                for (int x = area_.left; x < area_.right; ++x) {
                    picture_.at(x, y) =
                        type == 0 ? grain(x, y - share.first) : bar(x, y, y - share.first);
                }
            }
            if (type == 2) dashes(share);
        }
        if (type == 3) snow(0.0f, 0.9f, 0.0f);
        if (type == 4) snow(-1.32f, 1.32f, s_.scale * 0.1f * scaleY_);
    }

private:
    using Component = typename P::Component;
    static constexpr float kWhite = kTwinTop<P>;

    std::uint32_t start() const {
        return static_cast<std::uint32_t>(
            static_cast<std::int64_t>(static_cast<float>(s_.outputFrame) * 100.0f +
                                      static_cast<float>(static_cast<std::uint32_t>(s_.seed))));
    }
    static P all(int c) {
        const auto v = static_cast<Component>(c);
        return {{v, v, v, v}};
    }
    static P white() { return all(static_cast<int>(kWhite)); }

    P grain(int x, int row) const {
        std::uint32_t seed = start();
        for (int i = 0; i <= row; ++i) nextRandom(seed);
        const float at = static_cast<float>(x) / (s_.scale * 2000.0f * scaleY_);
        float sum = 0.0f;
        for (int i = 0; i < 4; ++i) {
            const int phase =
                static_cast<int>(fractionTwin(seed + static_cast<std::uint32_t>(i)) * 1023.0f);
            const int harmonic = 1 << i;
            const int index = truncateToInt(static_cast<float>(phase) +
                                            static_cast<float>(harmonic) * at * 1023.0f);
            const float angle =
                static_cast<float>(index % 1024) * 2.0f * 3.1415927f * 0.0009765625f;
            sum += static_cast<float>(maths::sin(angle));
        }
        const float v = std::fabs(sum / 4.0f);
        if (v > 0.44f) return white();
        if (v > 0.41799998f) {
            return all(truncateToInt((v - 0.41799998f) / 0.022000015f * kWhite));
        }
        return P{};
    }

    P bar(int x, int y, int row) const {
        std::uint32_t running = start();
        std::uint32_t base = running;
        const float ground = uniform(base) * 0.3f;
        for (int i = 0; i < row; ++i) nextRandom(running);
        const float shift = uniform(running) * 100.0f;
        const auto fx = static_cast<float>(x);
        const float f =
            std::fabs(noiseTable().fractalNoise(fx / (s_.scale * 50.0f * scaleY_) + shift, 3));
        if (f > 0.61f) return white();
        P pixel{};
        if (f > 0.305f) pixel = all(truncateToInt((f - 0.488f) / 0.305f * kWhite));
        const std::uint32_t h1 = static_cast<std::uint32_t>((y / 16) * 11) + base;
        const std::uint32_t h2 = static_cast<std::uint32_t>(((y + 4) / 8) * 11) + base;
        float w = (wave(fx, h2) + wave(fx, h1)) * 0.2f + ground;
        w = w > 0.0f ? (w > 1.0f ? 1.0f : w) : 0.0f;
        w = w * static_cast<float>(y % 2) * kWhite;
        for (int k = 0; k < 3; ++k) pixel.c[k] = heldTwin<P>(static_cast<float>(pixel.c[k]) + w);
        return pixel;
    }
    float wave(float x, std::uint32_t h) const {
        const float period = (fractionTwin(h) * 400.0f + 100.0f) * s_.scale * scaleY_;
        const float phase = fractionTwin(h + 1) * 2.0f * 3.1415927f;
        return static_cast<float>(maths::sin(x * 6.2831855f / period + phase));
    }

    void dashes(const TwinShare& share) {
        std::uint32_t seed = start();
        const auto newColour = [&](P& colour) {
            for (int k = 0; k < 3; ++k) {
                colour.c[k] = static_cast<Component>(uniform(seed) * kWhite);
            }
        };
        const auto newLength = [&] {
            return truncateToInt(static_cast<float>(static_cast<int>(uniform(seed) * 10.0f)) *
                                 s_.scale * scaleY_);
        };
        for (int y = share.first; y < share.end; ++y) {
            const float shift = uniform(seed) * 100.0f;
            P colour{};
            newColour(colour);
            int length = newLength();
            for (int x = area_.left, count = 0; x < area_.right; ++x) {
                if (count > length) {
                    if (static_cast<double>(uniform(seed)) > 0.7) {
                        colour = white();
                    } else {
                        newColour(colour);
                    }
                    length = newLength();
                    count = 0;
                }
                ++count;
                dash(picture_.at(x, y), colour,
                     std::fabs(noiseTable().fractalNoise(
                         static_cast<float>(x) / (s_.scale * 10.0f * scaleY_) + shift, 2)));
            }
        }
    }
    static void dash(P& pixel, const P& colour, float f) {
        if (f > 0.15f) {
            pixel = colour;
        } else if (f > 0.120000005f) {
            const float g = (f - 0.120000005f) / 0.030000001f;
            for (int k = 0; k < 3; ++k) {
                pixel.c[k] =
                    static_cast<Component>(static_cast<int>(static_cast<float>(colour.c[k]) * g));
            }
        } else {
            pixel = P{};
        }
    }

    void snow(float low, float high, float softness) {
        for (P& pixel : picture_.pixels) pixel = P{};
        NoiseTwin noise;
        noise.colour = false;
        for (int k = 0; k < 4; ++k) {
            noise.low[k] = low;
            noise.high[k] = high;
            if (k < 3) noise.softX[k] = softness;
        }
        const float from = std::fabs(static_cast<float>(s_.outputFrame) * 12541.0f);
        noise.seed = static_cast<std::uint32_t>(static_cast<std::int64_t>(from)) + 1u;
        NoiseOver<P>(noise, picture_, area_).run();
    }

    TwinPicture<P>& picture_;
    const SignalParameters& s_;
    float scaleY_;
    TwinArea area_;
};

inline int shashTypeTwin(const SignalParameters& s) {
    if (s.shashType != ShashType::Random) return static_cast<int>(s.shashType);
    if (s.shashPeriod == 0) return 0;
    auto seed = static_cast<std::uint32_t>(s.shashFramesOn / s.shashPeriod + s.seed);
    return static_cast<int>(uniform(seed) * 5.0f);
}

/// Mixes the pattern into an area of `picture`; `work` is what it is drawn over.
template <class P>
void shashTwin(TwinPicture<P>& picture, TwinPicture<P> work, const SignalParameters& s,
               float scaleY, int workers, const TwinArea& area) {
    const float mix = rampTwin(s.breakup, s.shashAmountMax, s.shashThreshold);
    if (!(mix > 0.0f)) return;
    ShashTwin<P>(work, s, scaleY, area).draw(shashTypeTwin(s), workers);
    const float rest = 1.0f - mix;
    area.forEach([&](int x, int y) {
        for (int k = 0; k < 4; ++k) {
            auto& c = picture.at(x, y).c[k];
            const float sum =
                static_cast<float>(c) * rest + static_cast<float>(work.at(x, y).c[k]) * mix;
            const bool held = rest < 0.0f || mix < 0.0f || rest + mix > 1.0f;
            c = held ? heldTwin<P>(sum) : static_cast<typename P::Component>(truncateToInt(sum));
        }
    });
}

}  // namespace ruvex::test
