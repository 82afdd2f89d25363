// The loops of the signal pass, compiled once per instruction set. Each source uses its own tag
// type, so that the linker can't merge the versions.

#pragma once

#include <cstddef>
#include <cstring>
#include <limits>

#include "imaging/pixel_convert.h"
#include "stages/colour_loss.h"
#include "stages/kernels/loop_maths.h"
#include "stages/pixel_words.h"

namespace ruvex::detail {

template <class P, class Processor>
struct SignalLoops {
    using Words = PixelWords<P, Processor>;
    using Component = typename P::Component;

    // from + (to - from) * k, truncated. 0 <= k <= 1, so the result fits.
    [[gnu::always_inline]] static std::int32_t towards(std::int32_t from, std::int32_t to,
                                                       float k) {
        return static_cast<std::int32_t>(static_cast<float>(to - from) * k +
                                         static_cast<float>(from));
    }

    // Calls colour(words, i) for each pixel i; it has to store the result.
    template <class Colour>
    [[gnu::always_inline]] static void forEach(const P* from, std::int32_t count, Colour colour) {
#pragma GCC ivdep
        for (std::int32_t i = 0; i < count; ++i) colour(Words(from + i), i);
    }

    // What is stored is never above the range: only values below 0 have to be replaced.
    static void clampToRange(const P* from, std::int32_t count, P* to) {
        using Limits = std::numeric_limits<Component>;
        static_assert(static_cast<float>(Limits::max()) <= PixelTraits<P>::kTop);
        if constexpr (Limits::min() == 0) {
            copy(from, count, to);
        } else {
            constexpr int kPixels = 8;
            std::int32_t i = 0;
            for (; i + kPixels <= count; i += kPixels) {
                raise<kPixels>(components(from + i), components(to + i));
            }
            for (; i < count; ++i) raise<1>(components(from + i), components(to + i));
        }
    }

    // Raises red, green and blue to at least 0.
    template <int Pixels>
    [[gnu::always_inline]] static void raise(const Component* from, Component* to) {
        constexpr Component kLowest = std::numeric_limits<Component>::min();
#pragma GCC ivdep
        for (int k = 0; k < 4 * Pixels; ++k) {
            const Component least = k % 4 == 3 ? kLowest : 0;
            to[k] = from[k] > least ? from[k] : least;
        }
    }

    static void copy(const P* from, std::int32_t count, P* to) {
        if (from == to || count <= 0) return;
        std::memcpy(static_cast<void*>(to), from, static_cast<std::size_t>(count) * sizeof(P));
    }

    static void grey(const P* from, std::int32_t count, P* to) {
        forEach(
            from, count, [=](const Words& w, std::int32_t i) __attribute__((always_inline)) {
                const std::int32_t mean = (w.template component<0>() + w.template component<1>() +
                                           w.template component<2>()) /
                                          3;
                w.store(mean, mean, mean, to + i);
            });
    }

    // Blue is computed from the new red, so that just before the end of the swap both channels have
    // the old blue.
    static void drain(const P* from, std::int32_t count, float k, P* to) {
        forEach(
            from, count, [=](const Words& w, std::int32_t i) __attribute__((always_inline)) {
                const std::int32_t g = w.template component<1>();
                const std::int32_t b = w.template component<2>();
                const std::int32_t mean = (w.template component<0>() + g + b) / 3;
                const std::int32_t r = towards(b, mean, k);
                w.store(r, towards(g, mean, k), towards(r, mean, k), to + i);
            });
    }

    static void swap(const P* from, std::int32_t count, float k, P* to) {
        forEach(
            from, count, [=](const Words& w, std::int32_t i) __attribute__((always_inline)) {
                const std::int32_t b = w.template component<2>();
                const std::int32_t r = towards(w.template component<0>(), b, k);
                w.store(r, w.template component<1>(), towards(b, r, k), to + i);
            });
    }

    static void loseColour(const P* from, std::int32_t count, const ColourLoss& loss, P* to) {
        switch (loss.stage) {
            case ColourLoss::Stage::Grey:
                return grey(from, count, to);
            case ColourLoss::Stage::Drain:
                return drain(from, count, loss.weight, to);
            case ColourLoss::Stage::Swap:
                return swap(from, count, loss.weight, to);
            default:
                copy(from, count, to);
        }
    }

    // The same when each gun reads another pixel: a channel is swapped within the pixel that its
    // gun reads.
    template <class Colour>
    [[gnu::always_inline]] static void forEachApart(const P* __restrict red,
                                                    const P* __restrict green,
                                                    const P* __restrict blue, std::int32_t count,
                                                    Colour colour) {
#pragma GCC ivdep
        for (std::int32_t i = 0; i < count; ++i) {
            colour(Words(red + i), Words(green + i), Words(blue + i), i);
        }
    }

    static void loseColourApart(const P* red, const P* green, const P* blue, std::int32_t count,
                                const ColourLoss& loss, P* to) {
        const float k = loss.weight;
        switch (loss.stage) {
            case ColourLoss::Stage::Grey:
                return forEachApart(
                    red, green, blue, count,
                    [=](const Words& r, const Words& g, const Words& b, std::int32_t i)
                        __attribute__((always_inline)) {
                            const std::int32_t mean =
                                (r.template component<0>() + g.template component<1>() +
                                 b.template component<2>()) /
                                3;
                            r.store(mean, mean, mean, to + i);
                        });
            case ColourLoss::Stage::Drain:
                return forEachApart(
                    red, green, blue, count,
                    [=](const Words& r, const Words& g, const Words& b,
                        std::int32_t i) __attribute__((always_inline)) {
                        const std::int32_t middle = g.template component<1>();
                        const std::int32_t mean =
                            (r.template component<0>() + middle + b.template component<2>()) / 3;
                        r.store(towards(r.template component<2>(), mean, k),
                                towards(middle, mean, k),
                                towards(b.template component<0>(), mean, k), to + i);
                    });
            case ColourLoss::Stage::Swap:
                return forEachApart(
                    red, green, blue, count,
                    [=](const Words& r, const Words& g, const Words& b,
                        std::int32_t i) __attribute__((always_inline)) {
                        r.store(towards(r.template component<0>(), r.template component<2>(), k),
                                g.template component<1>(),
                                towards(b.template component<2>(), b.template component<0>(), k),
                                to + i);
                    });
            default:
                return forEachApart(
                    red, green, blue, count,
                    [=](const Words& r, const Words& g, const Words& b, std::int32_t i)
                        __attribute__((always_inline)) {
                            r.store(r.template component<0>(), g.template component<1>(),
                                    b.template component<2>(), to + i);
                        });
        }
    }

    static void saturate(P* pixels, std::int32_t count, float saturation, float gain) {
        forEach(
            pixels, count, [=](const Words& w, std::int32_t i) __attribute__((always_inline)) {
                const std::int32_t r = w.template component<0>();
                const std::int32_t g = w.template component<1>();
                const std::int32_t b = w.template component<2>();
                const std::int32_t l = (r + g + b) / 3;
                const auto tone = [=](std::int32_t t) __attribute__((always_inline)) {
                    const float v = static_cast<float>(t - l) * saturation + static_cast<float>(l);
                    return clampedToRange<P>(static_cast<float>(truncateToInt(v)) * gain);
                };
                w.store(tone(r), tone(g), tone(b), pixels + i);
            });
    }

    static void dim(const P* from, std::int32_t count, float factor, P* to) {
        const Component* const in = components(from);
        Component* const out = components(to);
#pragma GCC ivdep
        for (std::int32_t i = 0; i < 4 * count; ++i) {
            out[i] = static_cast<Component>(truncateToInt(static_cast<float>(in[i]) * factor));
        }
    }
};

}  // namespace ruvex::detail
