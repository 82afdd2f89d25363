// The loops of the picture without a signal, to be compiled for one processor after another, like
// the signal's.

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

    // What a component keeps of an integer.
    [[gnu::always_inline]] static std::int32_t wrapped(std::int32_t value) {
        return static_cast<Component>(value);
    }
    [[gnu::always_inline]] static void store(std::int32_t r, std::int32_t g, std::int32_t b,
                                             std::int32_t alpha, P* to) {
        Words(r, g, b, alpha).store(to);
    }

    // The entry of a table of 1024 at a place, counting round.
    [[gnu::always_inline]] static std::uint32_t entry(float place) {
        return static_cast<std::uint32_t>(truncateToInt(place)) & 1023u;
    }

    // Points of white where the mean of four waves is high, with a narrow ramp at their edges.
    static void points(const float* __restrict sines, const float* __restrict places,
                       const float* phases, const float* harmonics, std::int32_t count,
                       P* __restrict to) {
        constexpr float kFull = 0.44f;
        constexpr float kFrom = 0.41799998f;
        constexpr float kRamp = 0.022000015f;
        const float p0 = phases[0], p1 = phases[1], p2 = phases[2], p3 = phases[3];
        const float h0 = harmonics[0], h1 = harmonics[1], h2 = harmonics[2], h3 = harmonics[3];
        for (std::int32_t i = 0; i < count; ++i) {
            const float place = places[i];
            const float sum = 0.0f + sines[entry(p0 + h0 * place * 1023.0f)] +
                              sines[entry(p1 + h1 * place * 1023.0f)] +
                              sines[entry(p2 + h2 * place * 1023.0f)] +
                              sines[entry(p3 + h3 * place * 1023.0f)];
            const float v = magnitude(sum / 4.0f);
            const std::int32_t ramp = truncateToInt((v - kFrom) / kRamp * kWhite + 0.0f);
            const std::int32_t low = v > kFrom ? wrapped(ramp) : 0;
            const std::int32_t value = v > kFull ? kWhiteInt : low;
            store(value, value, value, value, to + i);
        }
    }

    // Grains of noise over light. A grain just above the lower limit is a negative value, which
    // eight bits wrap to a bright fringe.
    static void bars(const float* __restrict noise, const float* __restrict light,
                     std::int32_t count, P* __restrict to) {
        for (std::int32_t i = 0; i < count; ++i) {
            const float f = magnitude(noise[i]);
            const std::int32_t ramp = truncateToInt((f - 0.488f) / 0.305f * kWhite + 0.0f);
            const std::int32_t grain = f > 0.305f ? wrapped(ramp) : 0;
            const std::int32_t lit = held<P>(static_cast<float>(grain) + light[i]);
            const bool white = f > 0.61f;
            const std::int32_t value = white ? kWhiteInt : lit;
            store(value, value, value, white ? kWhiteInt : grain, to + i);
        }
    }

    // Dashes of the colours given where the noise is high; at their edges the alpha that was there
    // stays.
    static void dashes(const float* __restrict noise, const P* __restrict colours,
                       std::int32_t count, P* __restrict to) {
        for (std::int32_t i = 0; i < count; ++i) {
            const Words colour(colours + i);
            const float f = magnitude(noise[i]);
            const float g = (f - 0.120000005f) / 0.030000001f;
            const bool full = f > 0.15f;
            const bool some = f > 0.120000005f;
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
