// The loop of the ghosts, compiled once per instruction set.

#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/kernels/vector.h"
#include "stages/kernels/loop_maths.h"

namespace ruvex::detail {

template <class P, class Processor>
struct GhostLoops {
    using Component = typename P::Component;

    // `Registers` vectors of components, whose sums stay in registers from ghost to ghost.
    template <int Lanes, int Registers>
    [[gnu::always_inline]] static void block(const Component* row, const P* const* ghosts,
                                             std::ptrdiff_t at, const float* weights,
                                             std::int32_t ghostCount, Component* to) {
        using V = Vector<Processor, Lanes>;
        typename V::Floats base[Registers], sum[Registers];
        for (int r = 0; r < Registers; ++r) {
            sum[r] = base[r] = V::toFloats(V::widened(row + at + r * Lanes));
        }
        for (std::int32_t g = 0; g < ghostCount; ++g) {
            const Component* const ghost = components(ghosts[g]) + at;
            for (int r = 0; r < Registers; ++r) {
                sum[r] += (base[r] - V::toFloats(V::widened(ghost + r * Lanes))) * weights[g];
            }
        }
        for (int r = 0; r < Registers; ++r) {
            V::narrow(clampedLanes<P, V>(sum[r]), to + at + r * Lanes);
        }
    }

    static void addGhosts(const P* row, const P* const* ghosts, const float* weights,
                          std::int32_t ghostCount, std::int32_t count, P* to) {
        constexpr int kLanes = kVectorLanes<Processor>;
        constexpr int kRegisters = 4;
        constexpr int kOfPixel = 4;
        const std::ptrdiff_t end = std::ptrdiff_t{count} * kOfPixel;
        std::ptrdiff_t at = 0;
        for (; at + kLanes * kRegisters <= end; at += kLanes * kRegisters) {
            block<kLanes, kRegisters>(components(row), ghosts, at, weights, ghostCount,
                                      components(to));
        }
        for (; at < end; at += kOfPixel) {
            block<kOfPixel, 1>(components(row), ghosts, at, weights, ghostCount, components(to));
        }
    }
};

}  // namespace ruvex::detail
