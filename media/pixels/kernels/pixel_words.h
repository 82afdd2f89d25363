// Pixels as machine words, a form in which compilers can vectorise loops.

#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace ruvex::media::detail {

/// Loads and stores the four components of a pixel. In a word the first component is the lowest,
/// whatever the byte order of the processor. A template over a tag type local to the including
/// source, so that the linker can't merge versions for different instruction sets.
template <class Component, class Processor>
struct PixelWords;

template <class Processor>
struct PixelWords<std::uint8_t, Processor> {
    std::uint32_t word;

    [[gnu::always_inline]] explicit PixelWords(const std::uint8_t* pixel) {
        std::memcpy(&word, pixel, sizeof word);
        word = ordered(word);
    }
    template <int K>
    [[gnu::always_inline]] std::int32_t component() const {
        return static_cast<std::int32_t>(word >> (8 * K) & 0xFFu);
    }
    /// Stores components, which must be in the range of their type.
    [[gnu::always_inline]] static void store(std::int32_t red, std::int32_t green,
                                             std::int32_t blue, std::int32_t alpha,
                                             std::uint8_t* pixel) {
        const std::uint32_t stored = ordered(
            static_cast<std::uint32_t>(alpha) << 24 | static_cast<std::uint32_t>(blue) << 16 |
            static_cast<std::uint32_t>(green) << 8 | static_cast<std::uint32_t>(red));
        std::memcpy(pixel, &stored, sizeof stored);
    }

private:
    [[gnu::always_inline]] static std::uint32_t ordered(std::uint32_t stored) {
        return std::endian::native == std::endian::little ? stored : __builtin_bswap32(stored);
    }
};

template <class Processor>
struct PixelWords<std::int16_t, Processor> {
    std::uint32_t low, high;

    [[gnu::always_inline]] explicit PixelWords(const std::int16_t* pixel) {
        std::memcpy(&low, pixel, sizeof low);
        std::memcpy(&high, pixel + 2, sizeof high);
        low = ordered(low);
        high = ordered(high);
    }
    template <int K>
    [[gnu::always_inline]] std::int32_t component() const {
        const std::uint32_t word = K < 2 ? low : high;
        return static_cast<std::int32_t>(K % 2 == 1 ? word : word << 16) >> 16;
    }
    /// Stores components, which must be in the range of their type.
    [[gnu::always_inline]] static void store(std::int32_t red, std::int32_t green,
                                             std::int32_t blue, std::int32_t alpha,
                                             std::int16_t* pixel) {
        storePair(red, green, pixel);
        storePair(blue, alpha, pixel + 2);
    }

private:
    /// Two components lie in memory in their order, each in the byte order of the processor.
    [[gnu::always_inline]] static std::uint32_t ordered(std::uint32_t stored) {
        return std::endian::native == std::endian::little ? stored : stored << 16 | stored >> 16;
    }
    [[gnu::always_inline]] static void storePair(std::int32_t lower, std::int32_t upper,
                                                 std::int16_t* components) {
        const std::uint32_t stored = ordered(static_cast<std::uint32_t>(upper) << 16 |
                                             (static_cast<std::uint32_t>(lower) & 0xFFFFu));
        std::memcpy(components, &stored, sizeof stored);
    }
};

}  // namespace ruvex::media::detail
