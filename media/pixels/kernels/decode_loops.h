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
        const Factors by(scale);
        for (int x = 0; x < line.width; x += kPart) {
            const int count = line.width - x < kPart ? line.width - x : kPart;
            const YuvLine<Sum> part{line.luma + x, line.blue + x, line.red + x,
                                    line.alpha == nullptr ? nullptr : line.alpha + x, count};
            const std::int32_t nearness = part.alpha == nullptr
                                              ? convert<false>(part, by, pixels + 4 * x)
                                              : convert<true>(part, by, pixels + 4 * x);
            if (nearness <= 2 * by.margin) settle(part, by, scale, pixels + 4 * x);
        }
    }

private:
    // Floats suffice for 8 bits; where they do not, see ColourScale.
    using Real = std::conditional_t<sizeof(Component) == 1, float, double>;

    static constexpr int kFractionBits = ColourScale::kFractionBits;
    static constexpr std::int32_t kFraction = (1 << kFractionBits) - 1;
    static constexpr std::int32_t kLeast = sizeof(Component) == 1 ? 0 : -32768;
    static constexpr std::int32_t kMost = sizeof(Component) == 1 ? 255 : 32767;
    /// Pixels that are converted at a time.
    static constexpr int kPart = 32;

    struct Factors {
        Real y0, rv, gu, gv, bu, start;
        double alpha;
        std::int32_t white, margin;

        explicit Factors(const ColourScale& scale)
            : y0(static_cast<Real>(scale.y0)),
              rv(static_cast<Real>(scale.rv)),
              gu(static_cast<Real>(scale.gu)),
              gv(static_cast<Real>(scale.gv)),
              bu(static_cast<Real>(scale.bu)),
              start(static_cast<Real>(scale.start)),
              alpha(scale.alpha),
              white(scale.white),
              margin(scale.margin) {}
    };

    /// Red, green and blue in multiples of 1 / 2^kFractionBits, to be rounded down.
    struct Colour {
        std::int32_t value[3];

        [[gnu::always_inline]] Colour(const YuvLine<Sum>& line, int x, const Factors& by) {
            const Real luma = static_cast<Real>(line.luma[x]) * by.y0 + by.start;
            const auto blue = static_cast<Real>(line.blue[x]);
            const auto red = static_cast<Real>(line.red[x]);
            value[0] = static_cast<std::int32_t>(luma + by.rv * red);
            value[1] = static_cast<std::int32_t>(luma - by.gu * blue - by.gv * red);
            value[2] = static_cast<std::int32_t>(luma + by.bu * blue);
        }
    };

    /// At most 2 * margin if an integer lies within the margin of the value, so that its rounding
    /// is open.
    [[gnu::always_inline]] static std::int32_t nearnessOf(std::int32_t value, std::int32_t margin) {
        return (value + margin) & kFraction;
    }
    [[gnu::always_inline]] static std::int32_t smaller(std::int32_t a, std::int32_t b) {
        return a < b ? a : b;
    }
    [[gnu::always_inline]] static std::int32_t clamped(std::int32_t component) {
        const std::int32_t atLeast = component < kLeast ? kLeast : component;
        return atLeast > kMost ? kMost : atLeast;
    }

    /// Converts a part of a line; gives the least nearness of its components.
    template <bool WithAlpha>
    [[gnu::always_inline]] static std::int32_t convert(const YuvLine<Sum>& line, const Factors& by,
                                                       Component* pixels) {
        std::int32_t nearest = kFraction;
#pragma GCC ivdep
        for (int x = 0; x < line.width; ++x) {
            const Colour colour(line, x, by);
            const auto [red, green, blue] = colour.value;
            nearest = smaller(nearest, nearnessOf(red, by.margin));
            nearest = smaller(nearest, nearnessOf(green, by.margin));
            nearest = smaller(nearest, nearnessOf(blue, by.margin));
            PixelWords<Component, Processor>::store(
                clamped(red >> kFractionBits), clamped(green >> kFractionBits),
                clamped(blue >> kFractionBits), WithAlpha ? alphaAt(line, x, by) : by.white,
                pixels + 4 * x);
        }
        return nearest;
    }

    /// The code values' white is odd, so that no value is half way between two of the frame's.
    [[gnu::always_inline]] static std::int32_t alphaAt(const YuvLine<Sum>& line, int x,
                                                       const Factors& by) {
        return static_cast<std::int32_t>(line.alpha[x] * by.alpha + 0.5);
    }

    /// Stores the components whose rounding is open.
    [[gnu::noinline]] static void settle(const YuvLine<Sum>& line, const Factors& by,
                                         const ColourScale& scale, Component* pixels) {
        for (int x = 0; x < line.width; ++x) {
            const Colour colour(line, x, by);
            for (int c = 0; c < 3; ++c) {
                if (nearnessOf(colour.value[c], by.margin) > 2 * by.margin) continue;
                const int upper = (colour.value[c] + by.margin) >> kFractionBits;
                pixels[4 * x + c] = static_cast<Component>(clamped(scale.nearest(
                    c, line.luma[x] - scale.black, static_cast<std::int64_t>(line.blue[x]),
                    static_cast<std::int64_t>(line.red[x]), upper)));
            }
        }
    }
};

}  // namespace ruvex::media::detail
