// The loops from pixels to YUV, compiled once per instruction set. Each source uses its own tag
// type, so that the linker can't merge the versions.

#pragma once

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
#pragma GCC ivdep
        for (int i = 0; i < width / 2; ++i) {
            store(Pixel(pixels + 8 * i), to.even, i);
            store(Pixel(pixels + 8 * i + 4), to.odd, i);
        }
        if (width % 2 != 0) {
            const Pixel last(pixels + 4 * (width - 1));
            store(last, to.even, width / 2);
            store(last, to.odd, width / 2);
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
    static void run(const RgbSums<Sum>& line, const SumCodes& codes, Word* words) {
        std::int32_t values[kPart];
        for (int x = 0; x < line.width; x += kPart) {
            const int count = line.width - x < kPart ? line.width - x : kPart;
            const RgbSums<Sum> from{line.red + x, line.green + x, line.blue + x, count};
            const bool open = compute(from, codes, values);
            store(values, count, codes.top, words + x);
            if (open) settle(from, codes, values, words + x);
        }
    }

private:
    static constexpr int kFractionBits = SumCodes::kFractionBits;
    static constexpr std::int32_t kFraction = (1 << kFractionBits) - 1;
    static constexpr int kMargin = SumCodes::kMargin;
    /// Code values that are computed at a time.
    static constexpr int kPart = 32;

    /// Whether the margin of `value` includes an integer, so that its rounding is open.
    [[gnu::always_inline]] static bool isOpen(std::int32_t value) {
        return ((value + kMargin) & kFraction) <= 2 * kMargin;
    }
    [[gnu::always_inline]] static std::int32_t clamped(std::int32_t code, int top) {
        const std::int32_t atLeast = code < 0 ? 0 : code;
        return atLeast > top ? top : atLeast;
    }

    /// Computes the code values in multiples of 1 / 2^kFractionBits; tells whether the rounding of
    /// any of them is open.
    [[gnu::always_inline]] static bool compute(const RgbSums<Sum>& line, const SumCodes& codes,
                                               std::int32_t* values) {
        const double red = codes.red;
        const double green = codes.green;
        const double blue = codes.blue;
        const double start = codes.start;
        std::int32_t open = 0;
        for (int x = 0; x < line.width; ++x) {
            const double value = start + static_cast<double>(line.red[x]) * red +
                                 static_cast<double>(line.green[x]) * green +
                                 static_cast<double>(line.blue[x]) * blue;
            values[x] = static_cast<std::int32_t>(value);
            open |= static_cast<std::int32_t>(isOpen(values[x]));
        }
        return open != 0;
    }

    [[gnu::always_inline]] static void store(const std::int32_t* values, int count, int top,
                                             Word* words) {
        for (int x = 0; x < count; ++x) {
            words[x] = static_cast<Word>(clamped(values[x] >> kFractionBits, top));
        }
    }

    /// Stores the code values whose rounding is open.
    [[gnu::noinline]] static void settle(const RgbSums<Sum>& line, const SumCodes& codes,
                                         const std::int32_t* values, Word* words) {
        for (int x = 0; x < line.width; ++x) {
            if (!isOpen(values[x])) continue;
            const int upper = (values[x] + kMargin) >> kFractionBits;
            const int nearest = codes.nearest(static_cast<std::int64_t>(line.red[x]),
                                              static_cast<std::int64_t>(line.green[x]),
                                              static_cast<std::int64_t>(line.blue[x]), upper);
            words[x] = static_cast<Word>(clamped(nearest, codes.top));
        }
    }
};

}  // namespace ruvex::media::detail
