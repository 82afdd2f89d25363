// Constants and clamps of a pixel type for the television's stages.

#pragma once

#include <algorithm>
#include <cstdint>

#include "imaging/pixel.h"
#include "imaging/pixel_convert.h"

namespace ruvex {

/// White, the largest value that a stage keeps, and the white of a set without a signal, whose
/// patterns use the whole range of S2.14.
template <class P>
struct StagePixel {
    using Component = typename P::Component;
    static constexpr float kWhite = PixelTraits<P>::kWhite;
    static constexpr float kTop = PixelTraits<P>::kTop;
    static constexpr std::int32_t kTopInt = static_cast<std::int32_t>(kTop);
    static constexpr float kShashWhite = kTop;
    static constexpr Component kWhiteComponent = static_cast<Component>(kWhite);

    /// Clamps to 0..top and truncates; NaN becomes 0.
    static Component clamp(float value) {
        if (!(value > 0.0f)) return 0;
        return static_cast<Component>(value < kTop ? static_cast<std::int32_t>(value) : kTopInt);
    }
    static std::int32_t clamp(std::int32_t value) { return std::clamp(value, 0, kTopInt); }
};

}  // namespace ruvex
