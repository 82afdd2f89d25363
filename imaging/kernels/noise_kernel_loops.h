// The bodies of the noise loops, compiled once per instruction set. Everything here is a template
// over a tag type local to the including source, so that the linker can't merge the versions.

#pragma once

#include "imaging/kernels/noise_kernels.h"
#include "imaging/kernels/soft_noise_loops.h"
#include "imaging/maths/maths_sine.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise_cell.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/pixel_convert.h"

namespace ruvex::detail {

template <class Processor>
struct NoiseLoops {
    static std::uint32_t numberAt(std::uint32_t first, std::int32_t column) {
        return first + static_cast<std::uint32_t>(column) * VxNoisyBastard::kColumnStep;
    }

    static void channel(std::uint32_t number, std::int32_t count, float factor, float offset,
                        ChannelInt* to) {
        for (std::int32_t i = 0; i < count; ++i) {
            to[i].c[0] = truncateToInt(hashAsFloat(numberAt(number, i)) * factor + offset);
        }
    }

    template <int Components>
    static void colour(std::uint32_t number, std::int32_t count, const float* factors,
                       RgbaInt* to) {
        for (std::int32_t i = 0; i < count; ++i) {
            const std::uint32_t n = numberAt(number, i);
            for (std::uint32_t k = 0; k < Components; ++k) {
                to[i].c[k] = truncateToInt(hashAsFloat(n + k) * factors[k] + 0.0f);
            }
        }
    }
};

template <class Processor>
void octaveRow(const float* __restrict gradients, const float* __restrict places,
               std::int32_t count, float pace, float shift, float weight, float* __restrict to) {
    for (std::int32_t i = 0; i < count; ++i) {
        to[i] += weight * gradientNoise(gradients, places[i] * pace + shift);
    }
}

template <class Processor>
void sineRow(const float* __restrict angles, std::int32_t count, float* __restrict to) {
    for (std::int32_t i = 0; i < count; ++i) {
        const maths::detail::Reduced angle = maths::detail::reduce(angles[i]);
        to[i] = static_cast<float>(maths::detail::sine(angle, angle.quarters));
    }
}

template <class Processor>
inline constexpr NoiseKernels kNoiseKernels{NoiseLoops<Processor>::channel,
                                            NoiseLoops<Processor>::template colour<4>,
                                            NoiseLoops<Processor>::template colour<3>,
                                            octaveRow<Processor>,
                                            sineRow<Processor>,
                                            SoftNoiseLoops<Processor>::soften};

}  // namespace ruvex::detail
