// Rows of hash noise: a random value for each pixel that depends on its position and a seed.

#pragma once

#include <cstdint>

#include "imaging/maths/random.h"
#include "imaging/pixel.h"

namespace ruvex {

/// Mixin: numbers the pixels for the position hash. A pixel's number depends only on its position
/// in image space and the seed, so its noise is the same for every window and number of threads.
class VxNoisyBastard {
public:
    static constexpr std::uint32_t kColumnStep = 7907;  ///< from a pixel to its right neighbour
    static constexpr std::uint32_t kRowStep = 17387;    ///< from a row to the next

    /// The number of pixel (x, y), modulo 2^32. Component k of a colour pixel hashes this number
    /// plus k.
    std::uint32_t pixelNumber(std::int32_t x, std::int32_t y) const {
        return static_cast<std::uint32_t>(x) * kColumnStep +
               static_cast<std::uint32_t>(y) * kRowStep + seed;
    }

    std::uint32_t seed = 0;
};

/// 1 / 2^31: hash * (scale * kHashStep) is a value from 0 to `scale`.
inline constexpr float kHashStep = 4.656613e-10f;

/// Fills `count` pixels of a row: hash * factor + offset, truncated. `number` is the pixel number
/// of the first.
void noiseRow(std::uint32_t number, std::int32_t count, float factor, float offset, ChannelInt* to);

/// Replaces negative values of a row by 0.
void holdAboveZero(std::int32_t count, ChannelInt* row);

/// The same for colour noise, with a factor for each component and no offset. Without `alpha` the
/// fourth component keeps its value.
void noiseRow(std::uint32_t number, std::int32_t count, const float (&factors)[4], bool alpha,
              RgbaInt* to);

}  // namespace ruvex
