// The loops of the shash patterns (no signal), compiled once per instruction set.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "imaging/kernels/vector.h"
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
    static constexpr std::int32_t kLastSine = 1023;

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

    using V = Vector<Processor, kVectorLanes<Processor>>;

    // The sine of each place, from the table.
    [[gnu::always_inline]] static typename V::Floats sines(const float* table,
                                                           typename V::Floats places) {
        return V::entries(table, V::truncated(places) & kLastSine);
    }

    // White where the mean of four waves is high, with a narrow ramp at the edges of that.
    [[gnu::always_inline]] static typename V::Ints point(const float* table, const float* phases,
                                                         const float* harmonics,
                                                         typename V::Floats place) {
        constexpr auto kLast = static_cast<float>(kLastSine);
        typename V::Floats sum{};
        for (int k = 0; k < 4; ++k) sum += sines(table, phases[k] + harmonics[k] * place * kLast);
        const auto bits = reinterpret_cast<typename V::Ints>(sum / 4.0f) & 0x7FFFFFFF;
        const auto v = reinterpret_cast<typename V::Floats>(bits);  // the mean's magnitude
        const auto ramp = V::truncated((v - kPointFrom) / kPointFade * kWhite);
        // As wide as a component, in which the ramp wraps.
        constexpr std::int32_t kLargest = std::numeric_limits<Component>::max();
        constexpr int kSpare = 32 - 8 * static_cast<int>(sizeof(Component));
        const auto low = std::is_signed_v<Component> ? (ramp << kSpare) >> kSpare : ramp & kLargest;
        const auto full = v > kPoint;
        return (full & kWhiteInt) | (~full & (v > kPointFrom) & low);
    }

    // White points: see point().
    static void points(const float* __restrict table, const float* __restrict places,
                       const float* phases, const float* harmonics, std::int32_t count,
                       P* __restrict to) {
        constexpr std::int32_t kTile = 64;
        constexpr std::int32_t kLanes = kVectorLanes<Processor>;
        std::int32_t values[kTile];
        for (std::int32_t first = 0; first < count; first += kTile) {
            const std::int32_t length = count - first < kTile ? count - first : kTile;
            std::int32_t i = 0;
            for (; i + kLanes <= length; i += kLanes) {
                V::store(point(table, phases, harmonics, V::load(places + first + i)), values + i);
            }
            if (i < length) {
                float last[kLanes] = {};
                std::memcpy(last, places + first + i,
                            static_cast<std::size_t>(length - i) * sizeof(float));
                V::store(point(table, phases, harmonics, V::load(last)), values + i);
            }
            for (i = 0; i < length; ++i) {
                store(values[i], values[i], values[i], values[i], to + first + i);
            }
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
