// The blurs worked out one number at a time.
//
// endlessBlurTwin says what a blur is: boxes over a picture that goes on for ever. steppedBlurTwin
// says how the sums run and what the buffers between hold, which shows where float sums round and
// where fewer than two boxes' worth of padding is there.

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <type_traits>
#include <vector>

#include "tests/imaging/twins/sample_twin.h"

namespace ruvex::twin {

struct BlurSettings {
    float radiusX = 0.0f, radiusY = 0.0f;  ///< as they take effect
    std::int32_t iterations = 3;
};

/// Pixels x0 to x1 - 1, y0 to y1 - 1, in image space.
struct BlurWindow {
    std::int64_t x0, y0, x1, y1;
};

/// A value on the way: 32-bit integers that wrap, or floats.
template <bool Floating>
using BlurValue = std::conditional_t<Floating, float, std::int32_t>;
template <bool Floating>
using BlurPixel = std::array<BlurValue<Floating>, 4>;
template <bool Floating>
using BlurLine = std::vector<BlurPixel<Floating>>;

inline std::int32_t low32(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

struct BoxTwin {
    std::int64_t r, g;
    float f, boxFactor;
    std::int32_t boxWeight, edgeWeight;

    explicit BoxTwin(float radius) {
        r = static_cast<std::int64_t>(radius);
        f = static_cast<float>(static_cast<double>(radius) - static_cast<double>(r));
        g = f != 0.0f ? 1 : 0;
        const auto length = static_cast<float>(static_cast<double>(2 * r + 1) + 2.0 * f);
        boxFactor = 1.0f / length;
        boxWeight = static_cast<std::int32_t>(static_cast<double>(boxFactor) * 16384.0);
        edgeWeight = static_cast<std::int32_t>(static_cast<double>(f) * 16384.0);
    }
    std::int64_t reach() const { return r + g; }

    /// The output from the sum of the whole pixels and the two at the ends.
    template <class T>
    std::int32_t output(std::int32_t inside, std::int32_t t, std::int32_t h) const {
        std::int64_t sum = inside;
        if (g) sum += low32(std::int64_t{low32(std::int64_t{t} + h)} * edgeWeight) >> 14;
        return low32(std::int64_t{low32(sum)} * boxWeight + 8192) >> 14;
    }
    template <class T>
    float output(float inside, float t, float h) const {
        const float edges = g ? (t + h) * f : 0.0f;
        const float value = (inside + edges) * boxFactor;
        return static_cast<float>(static_cast<T>(static_cast<std::int32_t>(value)));
    }
};

inline std::int32_t add(std::int32_t a, std::int32_t b) {
    return low32(std::int64_t{a} + b);
}
inline float add(float a, float b) {
    return a + b;
}
inline std::int32_t take(std::int32_t a, std::int32_t b) {
    return low32(std::int64_t{a} - b);
}
inline float take(float a, float b) {
    return a - b;
}

template <bool Floating, class P>
BlurPixel<Floating> blurPixel(const P& pixel) {
    BlurPixel<Floating> value{};
    for (std::size_t k = 0; k < std::size(pixel.c); ++k) {
        value[k] = static_cast<BlurValue<Floating>>(pixel.c[k]);
    }
    return value;
}
template <class P, class Value>
P storedPixel(const Value& value) {
    P pixel{};
    for (std::size_t k = 0; k < std::size(pixel.c); ++k) {
        pixel.c[k] = static_cast<std::remove_cvref_t<decltype(pixel.c[k])>>(value[k]);
    }
    return pixel;
}

/// One box along a line; the result is shorter by the box's reach at both ends.
template <class T, bool Floating>
BlurLine<Floating> boxedLine(const BlurLine<Floating>& in, const BoxTwin& box) {
    const auto reach = static_cast<std::size_t>(box.reach());
    BlurLine<Floating> out(in.size() - 2 * reach);
    for (std::size_t i = 0; i < out.size(); ++i) {
        for (std::size_t k = 0; k < 4; ++k) {
            BlurValue<Floating> inside = 0;
            const auto g = static_cast<std::size_t>(box.g);
            for (std::size_t j = g; j <= 2 * reach - g; ++j) inside = add(inside, in[i + j][k]);
            out[i][k] = box.output<T>(inside, in[i][k], in[i + 2 * reach][k]);
        }
    }
    return out;
}

/// The window of a picture after two or three boxes along both axes, row by row. pixel(x, y) gives
/// the picture for any place.
template <class P, bool Floating, class Picture>
std::vector<P> endlessBlurTwin(Picture pixel, const BlurWindow& window,
                               const BlurSettings& settings) {
    using T = std::remove_cvref_t<decltype(P{}.c[0])>;
    if (window.x0 >= window.x1 || window.y0 >= window.y1) return {};
    const BoxTwin boxX(settings.radiusX), boxY(settings.radiusY);
    const int boxes = settings.iterations == 3 ? 3 : 2;
    const std::int64_t aroundX = boxes * boxX.reach(), aroundY = boxes * boxY.reach();
    std::vector<BlurLine<Floating>> columns(static_cast<std::size_t>(window.x1 - window.x0));
    for (std::int64_t y = window.y0 - aroundY; y < window.y1 + aroundY; ++y) {
        BlurLine<Floating> line;
        for (std::int64_t x = window.x0 - aroundX; x < window.x1 + aroundX; ++x) {
            line.push_back(blurPixel<Floating>(pixel(x, y)));
        }
        for (int i = 0; i < boxes; ++i) line = boxedLine<T, Floating>(line, boxX);
        for (std::size_t c = 0; c < columns.size(); ++c) {
            // What lies between the passes is a picture of the same type.
            columns[c].push_back(blurPixel<Floating>(storedPixel<P>(line[c])));
        }
    }
    const auto height = static_cast<std::size_t>(window.y1 - window.y0);
    std::vector<P> result(columns.size() * height);
    for (std::size_t c = 0; c < columns.size(); ++c) {
        for (int i = 0; i < boxes; ++i) columns[c] = boxedLine<T, Floating>(columns[c], boxY);
        for (std::size_t row = 0; row < height; ++row) {
            result[row * columns.size() + c] = storedPixel<P>(columns[c][row]);
        }
    }
    return result;
}

/// Positions first to end - 1 of a line that has values there and an edge rule beyond.
template <bool Floating>
struct LineTwin {
    std::int64_t first = 0, end = 0;
    std::uint32_t edgeMethod = 0;
    BlurPixel<Floating> fill{};
    BlurLine<Floating> values;

    LineTwin(std::int64_t from, std::int64_t to, std::uint32_t method, BlurPixel<Floating> pixel)
        : first(from),
          end(to),
          edgeMethod(method),
          fill(pixel),
          values(to > from ? to - from : 0) {}

    BlurPixel<Floating> operator()(std::int64_t p) const {
        TexAxis axis;
        axis.setSize(static_cast<std::int32_t>(end - first));
        axis.edgeMethod = edgeMethod;
        const std::int64_t index = indexTwin(axis, p - first);
        return index == kNothing ? fill : values[static_cast<std::size_t>(index)];
    }
};

/// A box by a running sum: `read` gives the input at a position, `write` takes each output.
template <class T, bool Floating, class Read, class Write>
void steppedBox(Read read, std::int64_t first, std::int64_t end, const BoxTwin& box, Write write) {
    if (first >= end) return;
    BlurPixel<Floating> sum{};
    for (std::int64_t p = first - box.reach(); p <= first + box.r; ++p) {
        const BlurPixel<Floating> entering = read(p);
        for (std::size_t k = 0; k < 4; ++k) sum[k] = add(sum[k], entering[k]);
    }
    for (std::int64_t p = first; p < end; ++p) {
        BlurPixel<Floating> out{};
        const BlurPixel<Floating> before = read(p - box.reach()), after = read(p + box.r + 1);
        for (std::size_t k = 0; k < 4; ++k) {
            if (box.g) {
                sum[k] = take(sum[k], before[k]);
                out[k] = box.output<T>(sum[k], before[k], after[k]);
                sum[k] = add(sum[k], after[k]);
            } else {
                out[k] = box.output<T>(sum[k], {}, {});
                sum[k] = add(sum[k], take(after[k], before[k]));
            }
        }
        write(p, out);
    }
}

/// The boxes of one pass along one line. The row buffers start at `origin` less their padding and
/// are `size` plus twice that long.
template <class T, bool Floating, class Read, class Write>
void steppedLine(Read read, std::int64_t origin, std::int64_t size, std::int64_t first,
                 std::int64_t end, float radius, std::int32_t iterations, std::uint32_t edgeMethod,
                 const BlurPixel<Floating>& fill, Write write) {
    const BoxTwin box(radius);
    const std::int64_t padding = (box.reach() + 1) * iterations;
    LineTwin<Floating> one(origin - padding, origin + size + padding, edgeMethod, fill);
    LineTwin<Floating> two = one;
    const auto run = [&](auto from, LineTwin<Floating>& to, std::int64_t widening) {
        std::int64_t a = first - widening, b = end + widening;
        if (a < to.first || b > to.end) a = to.first, b = to.end;
        steppedBox<T, Floating>(from, a, b, box, [&to](std::int64_t p, const auto& out) {
            to.values[static_cast<std::size_t>(p - to.first)] = out;
        });
    };
    run(read, one, 2 * box.reach() + 2);
    if (iterations == 3) run(one, two, box.reach() + 1);
    const LineTwin<Floating>& last = iterations == 3 ? two : one;
    if (first < one.first || end > one.end) first = one.first, end = one.end;
    steppedBox<T, Floating>(last, first, end, box, write);
}

/// A whole blur as its passes go. mapX, mapY are where the Map's first pixel lies; mapWidth and
/// mapHeight its size; sourceWidth and sourceHeight the source's. put(x, y, pixel) takes the
/// result.
template <class P, bool Floating, class Put>
void steppedBlurTwin(const VxTexture<P>& source, const VxTexIndexer& map, const BlurWindow& window,
                     const BlurSettings& settings, Put put) {
    using T = std::remove_cvref_t<decltype(P{}.c[0])>;
    const std::int64_t width = std::max(map.x.size, source.x.size);
    const std::int64_t height = std::max(map.y.size, source.y.size);
    const auto margin = static_cast<std::int64_t>((static_cast<double>(settings.radiusY) + 2.0) *
                                                  settings.iterations);
    VxTexIndexer axes;
    axes.x.setSize(static_cast<std::int32_t>(width));
    axes.y.setSize(static_cast<std::int32_t>(height + 2 * margin));
    axes.x.edgeMethod = source.x.edgeMethod;
    axes.y.edgeMethod = source.y.edgeMethod;
    const std::int64_t left = map.x.offset, top = map.y.offset - margin;
    std::vector<P> between(static_cast<std::size_t>(width * (height + 2 * margin)));
    const auto fill = blurPixel<Floating>(source.fill);

    for (std::int64_t y = window.y0 - margin; y < window.y1 + margin; ++y) {
        steppedLine<T, Floating>(
            [&](std::int64_t x) {
                return blurPixel<Floating>(wholePixelTwin(source, low32(x), low32(y)));
            },
            left, width, window.x0, window.x1, settings.radiusX, settings.iterations,
            source.x.edgeMethod, fill,
            [&](std::int64_t x, const auto& out) {
                if (x < left || x >= left + width) return;
                between[static_cast<std::size_t>((y - top) * width + x - left)] =
                    storedPixel<P>(out);
            });
    }
    for (std::int64_t x = window.x0; x < window.x1; ++x) {
        steppedLine<T, Floating>(
            [&](std::int64_t y) {
                const std::int64_t row = indexTwin(axes.y, y - top);
                if (row == kNothing) return fill;
                return blurPixel<Floating>(
                    between[static_cast<std::size_t>(row * width + x - left)]);
            },
            map.y.offset, height, window.y0, window.y1, settings.radiusY, settings.iterations,
            source.y.edgeMethod, fill,
            [&](std::int64_t y, const auto& out) { put(x, y, storedPixel<P>(out)); });
    }
}

}  // namespace ruvex::twin
