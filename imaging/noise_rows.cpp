#include "imaging/noise_rows.h"

#include <algorithm>

#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

// Hashes have 31 bits: by way of the signed type they are converted by a single instruction.
float hashAsFloat(std::uint32_t number) {
    return static_cast<float>(static_cast<std::int32_t>(positionHash(number)));
}

template <int Components>
void colourRow(std::uint32_t number, std::int32_t count, const float (&factors)[4], RgbaInt* to) {
    for (std::int32_t i = 0; i < count; ++i) {
        const std::uint32_t n =
            number + static_cast<std::uint32_t>(i) * VxNoisyBastard::kColumnStep;
        for (std::uint32_t k = 0; k < Components; ++k) {
            to[i].c[k] = truncateToInt(hashAsFloat(n + k) * factors[k] + 0.0f);
        }
    }
}

}  // namespace

void noiseRow(std::uint32_t number, std::int32_t count, float factor, float offset,
              ChannelInt* to) {
    for (std::int32_t i = 0; i < count; ++i) {
        const std::uint32_t n =
            number + static_cast<std::uint32_t>(i) * VxNoisyBastard::kColumnStep;
        to[i].c[0] = truncateToInt(hashAsFloat(n) * factor + offset);
    }
}

void holdAboveZero(std::int32_t count, ChannelInt* row) {
    for (std::int32_t i = 0; i < count; ++i) row[i].c[0] = std::max(row[i].c[0], 0);
}

void noiseRow(std::uint32_t number, std::int32_t count, const float (&factors)[4], bool alpha,
              RgbaInt* to) {
    if (alpha) {
        colourRow<4>(number, count, factors, to);
    } else {
        colourRow<3>(number, count, factors, to);
    }
}

}  // namespace ruvex
