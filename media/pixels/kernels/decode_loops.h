// The loops from YUV to pixels, compiled once per instruction set. Each source uses its own tag
// type, so that the linker can't merge the versions.

#pragma once

#include <type_traits>

#include "media/pixels/colour_scale.h"
#include "media/pixels/kernels/pixel_words.h"
#include "media/pixels/kernels/yuv_kernels.h"

namespace ruvex::media::detail {

template <class Sum, class Component, class Processor>
struct DecodeLoops {
    static void decode(const YuvLine<Sum>& line, const ColourScale& scale, Component* pixels) {
        Part part;
        for (int i = 0; i < kPart; ++i) part.alpha[i] = scale.white;
        for (int x = 0; x < line.width; x += kPart) {
            const int count = line.width - x < kPart ? line.width - x : kPart;
            const YuvLine<Sum> from{line.luma + x, line.blue + x, line.red + x,
                                    line.alpha == nullptr ? nullptr : line.alpha + x, count};
            const bool open = compute(from, scale, part);
            if (from.alpha != nullptr) readAlpha(from, scale, part);
            store(part, count, pixels + 4 * x);
            if (open) settle(from, scale, part, pixels + 4 * x);
        }
    }

private:
    // Floats suffice for 8 bits; where they do not, see ColourScale.
    using Real = std::conditional_t<sizeof(Component) == 1, float, double>;

    static constexpr int kFractionBits = ColourScale::kFractionBits;
    static constexpr std::int32_t kHalf = 1 << (kFractionBits - 1);
    static constexpr std::int32_t kFraction = (1 << kFractionBits) - 1;
    static constexpr std::int32_t kLeast = sizeof(Component) == 1 ? 0 : -32768;
    static constexpr std::int32_t kMost = sizeof(Component) == 1 ? 255 : 32767;

    /// Pixels that are converted at a time: the components in multiples of 1 / 2^kFractionBits,
    /// alpha as it is stored.
    static constexpr int kPart = 32;
    struct Part {
        std::int32_t colour[3][kPart];
        std::int32_t alpha[kPart];
    };

    /// Whether the margin of `value` includes a half, so that its rounding is open.
    [[gnu::always_inline]] static bool isOpen(std::int32_t value, std::int32_t margin) {
        return ((value + kHalf + margin) & kFraction) <= 2 * margin;
    }
    [[gnu::always_inline]] static std::int32_t rounded(std::int32_t value) {
        const std::int32_t nearest = (value + kHalf) >> kFractionBits;
        const std::int32_t atLeast = nearest < kLeast ? kLeast : nearest;
        return atLeast > kMost ? kMost : atLeast;
    }

    /// Computes the components; tells whether the rounding of any of them is open.
    [[gnu::always_inline]] static bool compute(const YuvLine<Sum>& line, const ColourScale& scale,
                                               Part& part) {
        const auto y0 = static_cast<Real>(scale.y0);
        const auto rv = static_cast<Real>(scale.rv);
        const auto gu = static_cast<Real>(scale.gu);
        const auto gv = static_cast<Real>(scale.gv);
        const auto bu = static_cast<Real>(scale.bu);
        const std::int32_t black = scale.black;
        const std::int32_t margin = scale.margin;
        std::int32_t open = 0;
        for (int x = 0; x < line.width; ++x) {
            const Real luma = static_cast<Real>(line.luma[x] - black) * y0;
            const auto blue = static_cast<Real>(line.blue[x]);
            const auto red = static_cast<Real>(line.red[x]);
            const auto r = static_cast<std::int32_t>(luma + rv * red);
            const auto g = static_cast<std::int32_t>(luma - gu * blue - gv * red);
            const auto b = static_cast<std::int32_t>(luma + bu * blue);
            part.colour[0][x] = r;
            part.colour[1][x] = g;
            part.colour[2][x] = b;
            open |= static_cast<std::int32_t>(isOpen(r, margin)) |
                    static_cast<std::int32_t>(isOpen(g, margin)) |
                    static_cast<std::int32_t>(isOpen(b, margin));
        }
        return open != 0;
    }

    static void readAlpha(const YuvLine<Sum>& line, const ColourScale& scale, Part& part) {
        for (int x = 0; x < line.width; ++x) {
            // The code values' white is odd, so that no value is half way between two others.
            part.alpha[x] = static_cast<std::int32_t>(line.alpha[x] * scale.alpha + 0.5);
        }
    }

    [[gnu::always_inline]] static void store(const Part& part, int count, Component* pixels) {
        for (int x = 0; x < count; ++x) {
            PixelWords<Component, Processor>::store(
                rounded(part.colour[0][x]), rounded(part.colour[1][x]), rounded(part.colour[2][x]),
                part.alpha[x], pixels + 4 * x);
        }
    }

    /// Stores the components whose rounding is open.
    [[gnu::noinline]] static void settle(const YuvLine<Sum>& line, const ColourScale& scale,
                                         const Part& part, Component* pixels) {
        for (int c = 0; c < 3; ++c) {
            for (int x = 0; x < line.width; ++x) {
                const std::int32_t value = part.colour[c][x];
                if (!isOpen(value, scale.margin)) continue;
                const int upper = (value + kHalf + scale.margin) >> kFractionBits;
                const int nearest = scale.nearest(c, line.luma[x] - scale.black,
                                                  static_cast<std::int64_t>(line.blue[x]),
                                                  static_cast<std::int64_t>(line.red[x]), upper);
                const int atLeast = nearest < kLeast ? kLeast : nearest;
                pixels[4 * x + c] = static_cast<Component>(atLeast > kMost ? kMost : atLeast);
            }
        }
    }
};

}  // namespace ruvex::media::detail
