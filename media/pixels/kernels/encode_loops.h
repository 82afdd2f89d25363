// The loops from pixels to YUV, compiled once per instruction set. Each source uses its own tag
// type, so that the linker can't merge the versions.

#pragma once

#include <type_traits>

#include "media/pixels/code_scale.h"
#include "media/pixels/kernels/pixel_words.h"
#include "media/pixels/kernels/yuv_kernels.h"

namespace ruvex::media::detail {

/// A pixel's components, clamped to black and white.
template <class Component, class Processor>
struct ClampedPixel {
    std::int32_t red, green, blue, alpha;

    [[gnu::always_inline]] explicit ClampedPixel(const Component* pixel) {
        const PixelWords<Component, Processor> words(pixel);
        red = clamped(words.template component<0>());
        green = clamped(words.template component<1>());
        blue = clamped(words.template component<2>());
        alpha = clamped(words.template component<3>());
    }

private:
    [[gnu::always_inline]] static std::int32_t clamped(std::int32_t value) {
        if constexpr (sizeof(Component) == 1) return value;
        constexpr std::int32_t kWhite = 16384;
        const std::int32_t atLeast = value < 0 ? 0 : value;
        return atLeast > kWhite ? kWhite : atLeast;
    }
};

template <class Component, class Processor>
struct SplitLoop {
    static void run(const Component* pixels, int width, const PairLines& lines) {
        const PairLines to = lines;
        const int pairs = width / 2;
#pragma GCC ivdep
        for (int i = 0; i < pairs; ++i) {
            store(Pixel(pixels + 8 * i), to.even, i);
            store(Pixel(pixels + 8 * i + 4), to.odd, i);
        }
        if (width % 2 != 0) {
            const Pixel last(pixels + 4 * (width - 1));
            store(last, to.even, pairs);
            store(last, to.odd, pairs);
        }
    }

private:
    using Pixel = ClampedPixel<Component, Processor>;

    [[gnu::always_inline]] static void store(const Pixel& pixel, std::int32_t* const lines[3],
                                             int i) {
        lines[0][i] = pixel.red;
        lines[1][i] = pixel.green;
        lines[2][i] = pixel.blue;
    }
};

template <class Component, class Word, class Processor>
struct EncodePixelsLoop {
    static void runLuma(const Component* pixels, int width, const PixelCodes* codes,
                        Word* const* words) {
        const PixelCodes by = codes[0];
        Word* const to = words[0];
#pragma GCC ivdep
        for (int x = 0; x < width; ++x) to[x] = codeOf(Pixel(pixels + 4 * x), by);
    }

    static void runLumaBlueRed(const Component* pixels, int width, const PixelCodes* codes,
                               Word* const* words) {
        const PixelCodes byLuma = codes[0];
        const PixelCodes byBlue = codes[1];
        const PixelCodes byRed = codes[2];
        Word* const luma = words[0];
        Word* const blue = words[1];
        Word* const red = words[2];
#pragma GCC ivdep
        for (int x = 0; x < width; ++x) {
            const Pixel pixel(pixels + 4 * x);
            luma[x] = codeOf(pixel, byLuma);
            blue[x] = codeOf(pixel, byBlue);
            red[x] = codeOf(pixel, byRed);
        }
    }

    static void runAlpha(const Component* pixels, int width, const PixelCodes* codes,
                         Word* const* words) {
        const PixelCodes by = codes[0];
        Word* const to = words[0];
#pragma GCC ivdep
        for (int x = 0; x < width; ++x) to[x] = codeOfSum(Pixel(pixels + 4 * x).alpha, by);
    }

private:
    using Pixel = ClampedPixel<Component, Processor>;

    [[gnu::always_inline]] static Word codeOf(const Pixel& pixel, const PixelCodes& by) {
        return codeOfSum(by.weights.red * pixel.red + by.weights.green * pixel.green +
                             by.weights.blue * pixel.blue,
                         by);
    }
    [[gnu::always_inline]] static Word codeOfSum(std::int32_t sum, const PixelCodes& by) {
        const auto guess =
            static_cast<std::int32_t>(static_cast<float>(sum) * by.factor + by.start);
        const auto rest =
            static_cast<std::int32_t>(static_cast<std::uint32_t>(sum) * by.range + by.offset -
                                      static_cast<std::uint32_t>(guess) * by.divisor);
        const std::int32_t code =
            guess + (rest >= static_cast<std::int32_t>(by.divisor) ? 1 : 0) - (rest < 0 ? 1 : 0);
        return static_cast<Word>(code > by.top ? by.top : code);
    }
};

template <class Sum, class Word, class Processor>
struct EncodeSumsLoop {
    static void run(const RgbSums<Sum>& sums, const SumCodes& codes, Word* words) {
        const Factors by(codes);
        for (int x = 0; x < sums.width; x += kPart) {
            const int count = sums.width - x < kPart ? sums.width - x : kPart;
            const RgbSums<Sum> part{sums.red + x, sums.green + x, sums.blue + x, count};
            const std::int32_t nearness = convert(part, by, words + x);
            if (nearness <= 2 * by.margin) settle(part, by, codes, words + x);
        }
    }

private:
    // Floats suffice for bytes; where they do not, see SumCodes.
    using Real = std::conditional_t<sizeof(Word) == 1, float, double>;

    static constexpr int kFractionBits = SumCodes::kFractionBits;
    static constexpr std::int32_t kFraction = (1 << kFractionBits) - 1;
    /// Code values that are computed at a time.
    static constexpr int kPart = 32;

    struct Factors {
        Real red, green, blue, start;
        std::int32_t top, margin;

        explicit Factors(const SumCodes& codes)
            : red(static_cast<Real>(codes.red)),
              green(static_cast<Real>(codes.green)),
              blue(static_cast<Real>(codes.blue)),
              start(static_cast<Real>(codes.start)),
              top(codes.top),
              margin(codes.margin) {}
    };

    /// A code value in multiples of 1 / 2^kFractionBits, to be rounded down.
    [[gnu::always_inline]] static std::int32_t valueAt(const RgbSums<Sum>& sums, int x,
                                                       const Factors& by) {
        return static_cast<std::int32_t>(by.start + static_cast<Real>(sums.red[x]) * by.red +
                                         static_cast<Real>(sums.green[x]) * by.green +
                                         static_cast<Real>(sums.blue[x]) * by.blue);
    }
    /// At most 2 * margin if an integer lies within the margin of the value, so that its rounding
    /// is open.
    [[gnu::always_inline]] static std::int32_t nearnessOf(std::int32_t value, std::int32_t margin) {
        return (value + margin) & kFraction;
    }
    [[gnu::always_inline]] static Word clamped(std::int32_t code, std::int32_t top) {
        const std::int32_t atLeast = code < 0 ? 0 : code;
        return static_cast<Word>(atLeast > top ? top : atLeast);
    }

    /// Converts a part of a line; gives the least nearness of its code values.
    [[gnu::always_inline]] static std::int32_t convert(const RgbSums<Sum>& sums, const Factors& by,
                                                       Word* words) {
        std::int32_t nearest = kFraction;
#pragma GCC ivdep
        for (int x = 0; x < sums.width; ++x) {
            const std::int32_t value = valueAt(sums, x, by);
            const std::int32_t nearness = nearnessOf(value, by.margin);
            nearest = nearness < nearest ? nearness : nearest;
            words[x] = clamped(value >> kFractionBits, by.top);
        }
        return nearest;
    }

    /// Stores the code values whose rounding is open.
    [[gnu::noinline]] static void settle(const RgbSums<Sum>& sums, const Factors& by,
                                         const SumCodes& codes, Word* words) {
        for (int x = 0; x < sums.width; ++x) {
            const std::int32_t value = valueAt(sums, x, by);
            if (nearnessOf(value, by.margin) > 2 * by.margin) continue;
            const int upper = (value + by.margin) >> kFractionBits;
            words[x] = clamped(codes.nearest(static_cast<std::int64_t>(sums.red[x]),
                                             static_cast<std::int64_t>(sums.green[x]),
                                             static_cast<std::int64_t>(sums.blue[x]), upper),
                               by.top);
        }
    }
};

}  // namespace ruvex::media::detail
