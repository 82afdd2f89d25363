// Rows of position noise.

#pragma once

#include <cstdint>

#include "imaging/maths/random.h"
#include "imaging/pixel.h"

namespace ruvex {

/// Mixin: the numbering of pixels for the position hash. A pixel's number depends on its place in
/// image space alone, so that its noise is the same for every window and number of threads.
class VxNoisyBastard {
public:
    static constexpr std::uint32_t kColumnStep = 7907;
    static constexpr std::uint32_t kRowStep = 17387;

    /// The number of pixel (x, y); the components of a colour pixel use it and the three that
    /// follow.
    std::uint32_t pixelNumber(std::int32_t x, std::int32_t y) const {
        return static_cast<std::uint32_t>(x) * kColumnStep +
               static_cast<std::uint32_t>(y) * kRowStep + seed;
    }

    std::uint32_t seed = 0;
};

/// A hash becomes a value of 0 to `scale` by this times the scale: 1 / 2147483648.
inline constexpr float kHashStep = 4.656613e-10f;

/// Fills a row of channel noise from the pixel number of its first column: each value is the hash
/// times `factor` plus `offset`, truncated.
void noiseRow(std::uint32_t number, std::int32_t count, float factor, float offset, ChannelInt* to);

/// Holds the values of a row to 0 and above.
void holdAboveZero(std::int32_t count, ChannelInt* row);

/// Fills a row of colour noise, with a factor for each component. Without `alpha` the fourth stays
/// as it is.
void noiseRow(std::uint32_t number, std::int32_t count, const float (&factors)[4], bool alpha,
              RgbaInt* to);

}  // namespace ruvex
