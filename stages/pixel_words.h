// Pixels as machine words, a form in which compilers can vectorise loops.

#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "imaging/pixel.h"

namespace ruvex::detail {

/// Converts between a pixel and its components as integers. In a word the first component is the
/// lowest, whatever the byte order of the processor. A template over a tag type local to the
/// including source, so that the linker can't merge versions for different instruction sets.
template <class P, class Processor>
struct PixelWords;

template <class Processor>
struct PixelWords<Rgba8, Processor> {
    std::uint32_t word;

    [[gnu::always_inline]] explicit PixelWords(const Rgba8* pixel) {
        std::memcpy(&word, pixel, sizeof word);
        word = ordered(word);
    }
    /// From four components, which must be in the component's range.
    [[gnu::always_inline]] PixelWords(std::int32_t r, std::int32_t g, std::int32_t b,
                                      std::int32_t alpha)
        : word((static_cast<std::uint32_t>(alpha) << 24) | (static_cast<std::uint32_t>(b) << 16) |
               (static_cast<std::uint32_t>(g) << 8) | static_cast<std::uint32_t>(r)) {}
    [[gnu::always_inline]] void store(Rgba8* to) const { storeWord(word, to); }
    template <int K>
    [[gnu::always_inline]] std::int32_t component() const {
        return static_cast<std::int32_t>(word >> (8 * K) & 0xFFu);
    }
    /// Writes three components, which must be in range, and this pixel's alpha.
    [[gnu::always_inline]] void store(std::int32_t r, std::int32_t g, std::int32_t b,
                                      Rgba8* to) const {
        storeWord((word & 0xFF000000u) | (static_cast<std::uint32_t>(b) << 16) |
                      (static_cast<std::uint32_t>(g) << 8) | static_cast<std::uint32_t>(r),
                  to);
    }

private:
    [[gnu::always_inline]] static std::uint32_t ordered(std::uint32_t stored) {
        return std::endian::native == std::endian::little ? stored : __builtin_bswap32(stored);
    }
    [[gnu::always_inline]] static void storeWord(std::uint32_t value, Rgba8* to) {
        const std::uint32_t stored = ordered(value);
        std::memcpy(to, &stored, sizeof stored);
    }
};

template <class Processor>
struct PixelWords<RgbaS214, Processor> {
    std::int32_t low, high;

    [[gnu::always_inline]] explicit PixelWords(const RgbaS214* pixel) {
        low = loadPair(pixel->c);
        high = loadPair(pixel->c + 2);
    }
    [[gnu::always_inline]] PixelWords(std::int32_t r, std::int32_t g, std::int32_t b,
                                      std::int32_t alpha)
        : low(pair(r, g)), high(pair(b, alpha)) {}
    [[gnu::always_inline]] void store(RgbaS214* to) const {
        storePair(low, to->c);
        storePair(high, to->c + 2);
    }
    template <int K>
    [[gnu::always_inline]] std::int32_t component() const {
        const std::int32_t word = K < 2 ? low : high;
        return K % 2 == 1 ? word >> 16
                          : static_cast<std::int32_t>(static_cast<std::uint32_t>(word) << 16) >> 16;
    }
    [[gnu::always_inline]] void store(std::int32_t r, std::int32_t g, std::int32_t b,
                                      RgbaS214* to) const {
        PixelWords(r, g, b, high >> 16).store(to);
    }

private:
    [[gnu::always_inline]] static std::int32_t pair(std::int32_t lower, std::int32_t upper) {
        return static_cast<std::int32_t>((static_cast<std::uint32_t>(upper) << 16) |
                                         (static_cast<std::uint32_t>(lower) & 0xFFFFu));
    }
    /// Two components lie in memory in their order, each in the byte order of the processor.
    [[gnu::always_inline]] static std::int32_t ordered(std::int32_t stored) {
        return std::endian::native == std::endian::little
                   ? stored
                   : static_cast<std::int32_t>(std::rotl(static_cast<std::uint32_t>(stored), 16));
    }
    [[gnu::always_inline]] static std::int32_t loadPair(const std::int16_t* components) {
        std::int32_t stored;
        std::memcpy(&stored, components, sizeof stored);
        return ordered(stored);
    }
    [[gnu::always_inline]] static void storePair(std::int32_t value, std::int16_t* components) {
        const std::int32_t stored = ordered(value);
        std::memcpy(components, &stored, sizeof stored);
    }
};

}  // namespace ruvex::detail
