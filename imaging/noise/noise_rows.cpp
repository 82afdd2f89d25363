#include "imaging/noise/noise_rows.h"

#include <algorithm>

#include "imaging/kernels/noise_kernels.h"

namespace ruvex {

void noiseRow(std::uint32_t number, std::int32_t count, float factor, float offset,
              ChannelInt* to) {
    bestNoiseKernels().channel(number, count, factor, offset, to);
}

void holdAboveZero(std::int32_t count, ChannelInt* row) {
    for (std::int32_t i = 0; i < count; ++i) row[i].c[0] = std::max(row[i].c[0], 0);
}

void noiseRow(std::uint32_t number, std::int32_t count, const float (&factors)[4], bool alpha,
              RgbaInt* to) {
    const NoiseKernels& kernels = bestNoiseKernels();
    const auto colour = alpha ? kernels.colour : kernels.colourWithoutAlpha;
    colour(number, count, factors, to);
}

}  // namespace ruvex
