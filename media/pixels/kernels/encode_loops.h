// The loops from pixels to YUV, compiled once per instruction set. Each source uses its own tag
// type, so that the linker can't merge the versions.

#pragma once

#include "media/pixels/code_scale.h"
#include "media/pixels/kernels/pixel_words.h"
#include "media/pixels/kernels/yuv_kernels.h"

namespace ruvex::media::detail {

template <class Component, class Processor>
struct SplitLoop {
    static void run(const Component* pixels, int width, const RgbaLines& lines) {
        std::int32_t* const red = lines.red;
        std::int32_t* const green = lines.green;
        std::int32_t* const blue = lines.blue;
        std::int32_t* const alpha = lines.alpha;
#pragma GCC ivdep
        for (int x = 0; x < width; ++x) {
            const PixelWords<Component, Processor> words(pixels + 4 * x);
            red[x] = clamped(words.template component<0>());
            green[x] = clamped(words.template component<1>());
            blue[x] = clamped(words.template component<2>());
            alpha[x] = clamped(words.template component<3>());
        }
    }

private:
    static constexpr std::int32_t kWhite = sizeof(Component) == 1 ? 255 : 16384;

    [[gnu::always_inline]] static std::int32_t clamped(std::int32_t value) {
        const std::int32_t atLeast = value < 0 ? 0 : value;
        return atLeast > kWhite ? kWhite : atLeast;
    }
};

template <class Word, class Processor>
struct EncodePixelsLoop {
    static void run(const RgbLine<std::int32_t>& line, const PixelCodes& codes, Word* words) {
        const PixelCodes by = codes;
        const RgbLine<std::int32_t> from = line;
        const auto divisor = static_cast<std::int32_t>(by.divisor);
#pragma GCC ivdep
        for (int x = 0; x < from.width; ++x) {
            const std::int32_t sum = by.weights.red * from.red[x] +
                                     by.weights.green * from.green[x] +
                                     by.weights.blue * from.blue[x];
            const auto guess =
                static_cast<std::int32_t>(static_cast<float>(sum) * by.factor + by.start);
            const auto rest =
                static_cast<std::int32_t>(static_cast<std::uint32_t>(sum) * by.range + by.offset -
                                          static_cast<std::uint32_t>(guess) * by.divisor);
            const std::int32_t code = guess + (rest >= divisor ? 1 : 0) - (rest < 0 ? 1 : 0);
            words[x] = static_cast<Word>(code > by.top ? by.top : code);
        }
    }
};

template <class Sum, class Word, class Processor>
struct EncodeSumsLoop {
    static void run(const RgbLine<Sum>& line, const SumCodes& codes, Word* words) {
        std::int32_t values[kPart];
        for (int x = 0; x < line.width; x += kPart) {
            const int count = line.width - x < kPart ? line.width - x : kPart;
            const RgbLine<Sum> from{line.red + x, line.green + x, line.blue + x, count};
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
    [[gnu::always_inline]] static bool compute(const RgbLine<Sum>& line, const SumCodes& codes,
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
    [[gnu::noinline]] static void settle(const RgbLine<Sum>& line, const SumCodes& codes,
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
