// Pixels as machine words, a form in which loops over them are widened well.

#pragma once

#include <cstdint>
#include <cstring>

#include "imaging/pixel.h"

namespace ruvex::detail {

/// The components of pixel i of a row as integers, and back. All of it depends on a tag type local
/// to the including source, so that no other code can end up with its processor's instructions.
template <class P, class Processor>
struct PixelWords;

template <class Processor>
struct PixelWords<Rgba8, Processor> {
    std::uint32_t word;

    [[gnu::always_inline]] explicit PixelWords(const Rgba8* pixel) {
        std::memcpy(&word, pixel, sizeof word);
    }
    template <int K>
    [[gnu::always_inline]] std::int32_t component() const {
        return static_cast<std::int32_t>(word >> (8 * K) & 0xFFu);
    }
    /// Writes three components that fit, and this pixel's alpha.
    [[gnu::always_inline]] void store(std::int32_t r, std::int32_t g, std::int32_t b,
                                      Rgba8* to) const {
        const std::uint32_t result = (word & 0xFF000000u) | (static_cast<std::uint32_t>(b) << 16) |
                                     (static_cast<std::uint32_t>(g) << 8) |
                                     static_cast<std::uint32_t>(r);
        std::memcpy(to, &result, sizeof result);
    }
};

template <class Processor>
struct PixelWords<RgbaS214, Processor> {
    std::int32_t low, high;

    [[gnu::always_inline]] explicit PixelWords(const RgbaS214* pixel) {
        std::memcpy(&low, pixel->c, sizeof low);
        std::memcpy(&high, pixel->c + 2, sizeof high);
    }
    template <int K>
    [[gnu::always_inline]] std::int32_t component() const {
        const std::int32_t word = K < 2 ? low : high;
        return K % 2 == 1 ? word >> 16
                          : static_cast<std::int32_t>(static_cast<std::uint32_t>(word) << 16) >> 16;
    }
    [[gnu::always_inline]] void store(std::int32_t r, std::int32_t g, std::int32_t b,
                                      RgbaS214* to) const {
        const auto lower =
            (static_cast<std::uint32_t>(g) << 16) | (static_cast<std::uint32_t>(r) & 0xFFFFu);
        const auto upper = (static_cast<std::uint32_t>(high) & 0xFFFF0000u) |
                           (static_cast<std::uint32_t>(b) & 0xFFFFu);
        std::memcpy(to->c, &lower, sizeof lower);
        std::memcpy(to->c + 2, &upper, sizeof upper);
    }
};

}  // namespace ruvex::detail
