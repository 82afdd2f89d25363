// The loop of the ghosts, compiled once per instruction set.

#pragma once

#include <cstddef>
#include <cstdint>

#include "stages/kernels/loop_maths.h"

namespace ruvex::detail {

template <class P, class Processor>
struct GhostLoops {
    using Component = typename P::Component;

    // None of the three is inlined: the compiler uses __restrict only on function arguments, and
    // vectorises the loops only if the arrays do not overlap.
    template <int Width>
    [[gnu::noinline]] static void begin(const Component* __restrict row, float* __restrict base,
                                        float* __restrict sum) {
        for (int k = 0; k < Width; ++k) sum[k] = base[k] = static_cast<float>(row[k]);
    }
    template <int Width>
    [[gnu::noinline]] static void accumulate(const float* __restrict base,
                                             const Component* __restrict ghost, float weight,
                                             float* __restrict sum) {
        for (int k = 0; k < Width; ++k) {
            sum[k] += (base[k] - static_cast<float>(ghost[k])) * weight;
        }
    }
    template <int Width>
    [[gnu::noinline]] static void store(const float* __restrict sum, Component* __restrict to) {
        for (int k = 0; k < Width; ++k) {
            to[k] = static_cast<Component>(clampedToRange<P>(sum[k]));
        }
    }

    // `Width` components at once, so that their sums stay in the first-level cache from ghost to
    // ghost.
    template <int Width>
    static void block(const Component* row, const P* const* ghosts, std::ptrdiff_t at,
                      const float* weights, std::int32_t ghostCount, Component* to) {
        float base[Width], sum[Width];
        begin<Width>(row + at, base, sum);
        for (std::int32_t g = 0; g < ghostCount; ++g) {
            accumulate<Width>(base, components(ghosts[g]) + at, weights[g], sum);
        }
        store<Width>(sum, to + at);
    }

    static void addGhosts(const P* row, const P* const* ghosts, const float* weights,
                          std::int32_t ghostCount, std::int32_t count, P* to) {
        constexpr int kWide = 64;
        constexpr int kNarrow = 4;
        const std::ptrdiff_t end = std::ptrdiff_t{count} * 4;
        std::ptrdiff_t at = 0;
        for (; at + kWide <= end; at += kWide) {
            block<kWide>(components(row), ghosts, at, weights, ghostCount, components(to));
        }
        for (; at < end; at += kNarrow) {
            block<kNarrow>(components(row), ghosts, at, weights, ghostCount, components(to));
        }
    }
};

}  // namespace ruvex::detail
