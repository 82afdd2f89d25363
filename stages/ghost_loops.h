// The loop of the ghosts, to be compiled for one processor after another, like the signal's.

#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/pixel.h"

namespace ruvex::detail {

template <class P, class Processor>
struct GhostLoops {
    using Component = typename P::Component;

    static constexpr float kTop = PixelTraits<P>::kTop;

    // `Width` components at once: their sums stay in registers from ghost to ghost.
    template <int Width>
    [[gnu::always_inline]] static void block(const Component* row, const P* const* ghosts,
                                             std::ptrdiff_t at, const float* weights,
                                             std::int32_t ghostCount, Component* to) {
        float base[Width], sum[Width];
        for (int k = 0; k < Width; ++k) sum[k] = base[k] = static_cast<float>(row[at + k]);
        for (std::int32_t g = 0; g < ghostCount; ++g) {
            const Component* ghost = ghosts[g]->c + at;
            const float weight = weights[g];
            for (int k = 0; k < Width; ++k) {
                sum[k] += (base[k] - static_cast<float>(ghost[k])) * weight;
            }
        }
        for (int k = 0; k < Width; ++k) {
            const float low = sum[k] > 0.0f ? sum[k] : 0.0f;
            to[at + k] = static_cast<Component>(static_cast<std::int32_t>(low < kTop ? low : kTop));
        }
    }

    static void haunt(const P* row, const P* const* ghosts, const float* weights,
                      std::int32_t ghostCount, std::int32_t count, P* to) {
        constexpr int kWide = 32;
        constexpr int kNarrow = P::kComponents;
        const std::ptrdiff_t components = std::ptrdiff_t{count} * P::kComponents;
        std::ptrdiff_t at = 0;
        for (; at + kWide <= components; at += kWide) {
            block<kWide>(row->c, ghosts, at, weights, ghostCount, to->c);
        }
        for (; at < components; at += kNarrow) {
            block<kNarrow>(row->c, ghosts, at, weights, ghostCount, to->c);
        }
    }
};

}  // namespace ruvex::detail
