// The loops of the shash patterns (no signal), compiled once per instruction set.

#pragma once

#include <cstdint>

#include "imaging/pixel_convert.h"
#include "stages/kernels/loop_maths.h"
#include "stages/pixel_words.h"

namespace ruvex::detail {

template <class P, class Processor>
struct ShashLoops {
    using Component = typename P::Component;
    using Words = PixelWords<P, Processor>;

    static constexpr float kWhite = PixelTraits<P>::kTop;
    static constexpr auto kWhiteInt = static_cast<std::int32_t>(kWhite);

    // The last index of the table of sines, which is also the mask for indices.
    static constexpr std::uint32_t kLastSine = 1023;

    // Points are white where the magnitude of the waves' mean is above kPoint, and fade over the 5
    // % below it.
    static constexpr float kPoint = 0.44f;
    static constexpr float kPointFrom = 0.41799998f;   // 0.95 kPoint
    static constexpr float kPointFade = 0.022000015f;  // kPoint - kPointFrom

    // Grains are white where the noise is above kGrain. They begin at half of that, but the ramp is
    // 0 at 0.8 of it: the values in between are negative.
    static constexpr float kGrain = 0.61f;
    static constexpr float kGrainFrom = 0.305f;
    static constexpr float kGrainZero = 0.488f;
    static constexpr float kGrainFade = 0.305f;

    // Dashes have their full colour where the noise is above kDash, and fade over a fifth of it
    // below.
    static constexpr float kDash = 0.15f;
    static constexpr float kDashFrom = 0.120000005f;
    static constexpr float kDashFade = 0.030000001f;  // kDash - kDashFrom

    // Wraps an integer to the range of a component.
    [[gnu::always_inline]] static std::int32_t wrapped(std::int32_t value) {
        return static_cast<Component>(value);
    }
    [[gnu::always_inline]] static void store(std::int32_t r, std::int32_t g, std::int32_t b,
                                             std::int32_t alpha, P* to) {
        Words(r, g, b, alpha).store(to);
    }

    // The index in the table of sines for a place, modulo the table's length.
    [[gnu::always_inline]] static std::uint32_t entry(float place) {
        return static_cast<std::uint32_t>(truncateToInt(place)) & kLastSine;
    }

    // White points where the mean of four waves is high, with a narrow ramp at their edges.
    static void points(const float* __restrict sines, const float* __restrict places,
                       const float* phases, const float* harmonics, std::int32_t count,
                       P* __restrict to) {
        constexpr auto kLast = static_cast<float>(kLastSine);
        const float p0 = phases[0], p1 = phases[1], p2 = phases[2], p3 = phases[3];
        const float h0 = harmonics[0], h1 = harmonics[1], h2 = harmonics[2], h3 = harmonics[3];
        for (std::int32_t i = 0; i < count; ++i) {
            const float place = places[i];
            const float sum = 0.0f + sines[entry(p0 + h0 * place * kLast)] +
                              sines[entry(p1 + h1 * place * kLast)] +
                              sines[entry(p2 + h2 * place * kLast)] +
                              sines[entry(p3 + h3 * place * kLast)];
            const float v = magnitude(sum / 4.0f);
            const std::int32_t ramp = truncateToInt((v - kPointFrom) / kPointFade * kWhite + 0.0f);
            const std::int32_t low = v > kPointFrom ? wrapped(ramp) : 0;
            const std::int32_t value = v > kPoint ? kWhiteInt : low;
            store(value, value, value, value, to + i);
        }
    }

    // Grains of noise on top of the light. In 8 bits a negative grain wraps to a bright fringe.
    static void bars(const float* __restrict noise, const float* __restrict light,
                     std::int32_t count, P* __restrict to) {
        for (std::int32_t i = 0; i < count; ++i) {
            const float f = magnitude(noise[i]);
            const std::int32_t ramp = truncateToInt((f - kGrainZero) / kGrainFade * kWhite + 0.0f);
            const std::int32_t grain = f > kGrainFrom ? wrapped(ramp) : 0;
            const std::int32_t lit = clampedToRange<P>(static_cast<float>(grain) + light[i]);
            const bool white = f > kGrain;
            const std::int32_t value = white ? kWhiteInt : lit;
            store(value, value, value, white ? kWhiteInt : grain, to + i);
        }
    }

    // Dashes of the given colours where the noise is high. Their edges keep the existing alpha.
    static void dashes(const float* __restrict noise, const P* __restrict colours,
                       std::int32_t count, P* __restrict to) {
        for (std::int32_t i = 0; i < count; ++i) {
            const Words colour(colours + i);
            const float f = magnitude(noise[i]);
            const float g = (f - kDashFrom) / kDashFade;
            const bool full = f > kDash;
            const bool some = f > kDashFrom;
            const auto tone = [=](std::int32_t c) __attribute__((always_inline)) {
                const std::int32_t part = wrapped(truncateToInt(static_cast<float>(c) * g + 0.0f));
                const std::int32_t edge = some ? part : 0;
                return full ? c : edge;
            };
            const std::int32_t was = Words(to + i).template component<3>();
            const std::int32_t alpha = some ? was : 0;
            store(tone(colour.template component<0>()), tone(colour.template component<1>()),
                  tone(colour.template component<2>()),
                  full ? colour.template component<3>() : alpha, to + i);
        }
    }
};

}  // namespace ruvex::detail
