// The loops of snow, compiled once per instruction set.

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "imaging/kernels/vector.h"
#include "imaging/maths/random.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/pixel.h"
#include "stages/grain_shape.h"
#include "stages/kernels/loop_maths.h"

namespace ruvex::detail {

template <class P, class Processor>
struct GrainLoops {
    using Component = typename P::Component;

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

    // GrainShape's values for the components of some pixels.
    template <int Count>
    struct ShapeLanes {
        using V = Vector<Processor, Count>;
        typename V::Floats low, cut, stretch;
        typename V::Ints keep;  // all bits set for a component without noise

        [[gnu::always_inline]] explicit ShapeLanes(const GrainShape& shape)
            : cut(V::all(shape.cut)), stretch(V::all(shape.stretch)) {
            float lows[Count];
            std::int32_t keeps[Count];
            for (int k = 0; k < Count; ++k) {
                lows[k] = shape.low[k % 4];
                keeps[k] = (shape.keep >> (k % 4) & 1u) != 0 ? -1 : 0;
            }
            low = V::load(lows);
            keep = V::load(keeps);
        }

        // Noise from -cut to cut becomes 0, and so does NaN (noise of range 0, stretched). The rest
        // is symmetric about 0, and exactly so, since rounding is. In place of 0 it may be -0,
        // which makes no difference to the sum.
        [[gnu::always_inline]] typename V::Floats outsideBand(typename V::Floats value) const {
            const auto bits = reinterpret_cast<typename V::Ints>(value);
            const auto size = reinterpret_cast<typename V::Floats>(bits & 0x7FFFFFFF);
            const auto left = V::larger((size - cut) * stretch, V::all(0.0f));
            constexpr std::int32_t kSign = std::numeric_limits<std::int32_t>::min();
            const auto sign = bits & kSign;
            return reinterpret_cast<typename V::Floats>(reinterpret_cast<typename V::Ints>(left) |
                                                        sign);
        }

        template <bool Banded>
        [[gnu::always_inline]] void add(const Component* from, typename V::Floats noise,
                                        Component* to) const {
            const auto shifted = noise + low;
            const auto c = V::widened(from);
            const auto sum = V::toFloats(c) + (Banded ? outsideBand(shifted) : shifted);
            V::narrow((clampedLanes<P, V>(sum) & ~keep) | (c & keep), to);
        }
    };

    // Adds the values that noise.at<V>(i) gives for the pixels from number i on.
    template <bool Banded, class Noise>
    static void add(const P* from, const Noise& noise, std::int32_t count, const GrainShape& shape,
                    P* to) {
        constexpr int kLanes = kVectorLanes<Processor>;
        constexpr int kPixels = kLanes / 4;
        const ShapeLanes<kLanes> lanes(shape);
        std::int32_t i = 0;
        for (; i + kPixels <= count; i += kPixels) {
            lanes.template add<Banded>(components(from + i),
                                       noise.template at<Vector<Processor, kLanes>>(i),
                                       components(to + i));
        }
        const ShapeLanes<4> ofPixel(shape);
        for (; i < count; ++i) {
            ofPixel.template add<Banded>(components(from + i),
                                         noise.template at<Vector<Processor, 4>>(i),
                                         components(to + i));
        }
    }
    template <class Noise>
    static void add(const P* from, const Noise& noise, std::int32_t count, const GrainShape& shape,
                    P* to) {
        return shape.banded ? add<true>(from, noise, count, shape, to)
                            : add<false>(from, noise, count, shape, to);
    }

    struct HardNoise {
        const float* values;
        template <class V>
        [[gnu::always_inline]] typename V::Floats at(std::int32_t pixel) const {
            return V::load(values + 4 * std::ptrdiff_t{pixel});
        }
    };
    static void addGrain(const P* from, const float* values, std::int32_t count,
                         const GrainShape& shape, P* to) {
        return add(from, HardNoise{values}, count, shape, to);
    }

    struct SoftNoise {
        const std::int32_t* values;
        std::int64_t stride;
        template <class V>
        [[gnu::always_inline]] typename V::Floats at(std::int32_t pixel) const {
            return V::toFloats(V::quads(values + pixel * stride, stride));
        }
    };
    static void addSoftGrain(const P* from, const std::int32_t* values, std::int64_t stride,
                             std::int32_t count, const GrainShape& shape, P* to) {
        return add(from, SoftNoise{values, stride}, count, shape, to);
    }
};

}  // namespace ruvex::detail
