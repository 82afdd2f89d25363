// The loops of snow, compiled once per instruction set.

#pragma once

#include <cstdint>
#include <cstring>

#include "imaging/maths/random.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/pixel.h"
#include "stages/grain_shape.h"
#include "stages/kernels/loop_maths.h"

namespace ruvex::detail {

template <class P, class Processor>
struct GrainLoops {
    using Component = typename P::Component;

    // The number of components per step: the four of a pixel are repeated to this width.
    static constexpr int kWidth = 32;

    static void hashColour(std::uint32_t number, std::int32_t count, const float* factors,
                           float* to) {
        const float f[4] = {factors[0], factors[1], factors[2], factors[3]};
        for (std::int32_t i = 0; i < count; ++i) {
            const std::uint32_t n =
                number + static_cast<std::uint32_t>(i) * VxNoisyBastard::kColumnStep;
            for (std::uint32_t k = 0; k < 4; ++k)
                to[4 * i + static_cast<int>(k)] = hashAsFloat(n + k) * f[k];
        }
    }

    static void hashGrey(std::uint32_t number, std::int32_t count, float factor, float* to) {
        for (std::int32_t i = 0; i < count; ++i) {
            const std::uint32_t n =
                number + static_cast<std::uint32_t>(i) * VxNoisyBastard::kColumnStep;
            const float value = hashAsFloat(n) * factor;
            for (int k = 0; k < 4; ++k) to[4 * i + k] = value;
        }
    }

    // GrainShape's values of the four components, repeated kWidth / 4 times.
    struct Lanes {
        float low[kWidth];
        std::int32_t keep[kWidth];  // all bits set for a component without noise

        explicit Lanes(const GrainShape& shape) {
            for (int k = 0; k < kWidth; ++k) {
                low[k] = shape.low[k % 4];
                keep[k] = (shape.keep >> (k % 4) & 1u) != 0 ? -1 : 0;
            }
        }
    };

    // Not inlined: the compiler uses __restrict only on function arguments, and vectorises the loop
    // only if the arrays do not overlap.
    template <bool Banded, int Width>
    [[gnu::noinline]] static void block(const Component* __restrict from,
                                        const float* __restrict values,
                                        const Lanes& __restrict lanes, const GrainShape& shape,
                                        Component* __restrict to) {
        const float cut = shape.cut;
        const float stretch = shape.stretch;
        for (int k = 0; k < Width; ++k) {
            float v = values[k] + lanes.low[k];
            if (Banded) {
                // Written so that NaN (noise of range 0, stretched) becomes 0 too.
                const bool below = v < 0.0f;
                const float left = (v + (below ? cut : -cut)) * stretch;
                const float lower = left < 0.0f ? left : 0.0f;
                const float upper = left > 0.0f ? left : 0.0f;
                v = below ? lower : upper;
            }
            const std::int32_t c = from[k];
            const float sum = static_cast<float>(c) + v;
            to[k] = static_cast<Component>((clampedToRange<P>(sum) & ~lanes.keep[k]) |
                                           (c & lanes.keep[k]));
        }
    }

    template <bool Banded>
    static void add(const P* from, const float* values, std::int32_t count, const GrainShape& shape,
                    P* to) {
        const Lanes lanes(shape);
        constexpr std::int32_t kPixels = kWidth / 4;
        for (std::int32_t i = 0; i < count;) {
            // Buffered, since `to` may be `from`.
            Component result[kWidth];
            const std::int32_t n = count - i >= kPixels ? kPixels : 1;
            if (n == kPixels) {
                block<Banded, kWidth>(components(from + i), values + 4 * i, lanes, shape, result);
            } else {
                block<Banded, 4>(components(from + i), values + 4 * i, lanes, shape, result);
            }
            std::memcpy(static_cast<void*>(to + i), result,
                        static_cast<std::size_t>(n) * sizeof(P));
            i += n;
        }
    }

    static void addGrain(const P* from, const float* values, std::int32_t count,
                         const GrainShape& shape, P* to) {
        return shape.banded ? add<true>(from, values, count, shape, to)
                            : add<false>(from, values, count, shape, to);
    }
};

}  // namespace ruvex::detail
