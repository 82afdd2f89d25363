// One pixel read from a texture, whole or interpolated.

#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "imaging/texture.h"
#include "tests/imaging/twins/index_twin.h"

namespace ruvex::twin {

/// A float as a 32-bit integer; what doesn't fit is the lowest integer.
inline std::int32_t toInt(float value) {
    if (!(value >= -2147483648.0f) || !(value < 2147483648.0f)) return INT32_MIN;
    return static_cast<std::int32_t>(std::trunc(value));
}
inline std::int32_t floorInt(float value) {
    return toInt(std::floor(value));
}

/// The pixel of the buffer at (column, row), or the fill pixel where either is missing.
template <class P, class C>
P pixelOrFill(const VxTexture<P, C>& texture, std::int64_t column, std::int64_t row) {
    if (column == kNothing || row == kNothing || texture.data == nullptr) return texture.fill;
    P pixel;
    std::memcpy(&pixel,
                texture.data + row * texture.stride + column * static_cast<std::int64_t>(sizeof(P)),
                sizeof(P));
    return pixel;
}

/// The pixel that is read for image-space (x, y), as copying and the nearest move read it.
template <class P, class C>
P wholePixelTwin(const VxTexture<P, C>& texture, std::int32_t x, std::int32_t y) {
    return pixelOrFill(texture, indexTwin(texture.x, minus(x, texture.x.origin)),
                       indexTwin(texture.y, minus(y, texture.y.origin)));
}

inline float between(float a, float b, float part) {
    return a + (b - a) * part;
}
inline std::int32_t between(std::int32_t a, std::int32_t b, float part) {
    return toInt(static_cast<float>(minus(b, a)) * part + static_cast<float>(a));
}

/// The component k of a pixel as the interpolation of companion C computes with it.
template <class C, class P>
auto working(const P& pixel, int k) {
    if constexpr (std::is_same_v<P, std::int32_t>) {
        return pixel + 0 * k;
    } else {
        return static_cast<std::remove_cvref_t<decltype(C{}.c[0])>>(pixel.c[k]);
    }
}

template <class C, class T>
void setComponent(C& pixel, int k, T value) {
    if constexpr (std::is_same_v<C, std::int32_t>) {
        pixel = value;
    } else {
        pixel.c[k] = value;
    }
}

template <class P, class C>
C sampleTwin(const VxTexture<P, C>& texture, float x, float y) {
    constexpr int kComponents = std::is_same_v<P, ChannelInt> || std::is_same_v<P, Channel8> ||
                                        std::is_same_v<P, ChannelS214> ||
                                        std::is_same_v<P, std::int32_t>
                                    ? 1
                                    : 4;
    const float px = x - 0.5f - texture.x.originF;
    const float py = y - 0.5f - texture.y.originF;
    const std::int32_t ix = floorInt(px);
    const std::int32_t iy = floorInt(py);
    const float fx = px - static_cast<float>(ix);
    const float fy = py - static_cast<float>(iy);
    const PairTwin columns = pairTwin(texture.x, ix);
    const PairTwin rows = pairTwin(texture.y, iy);
    const bool outside = (columns.first == kNothing && columns.second == kNothing) ||
                         (rows.first == kNothing && rows.second == kNothing);
    C result{};
    for (int k = 0; k < kComponents; ++k) {
        const auto corner = [&](std::int64_t column, std::int64_t row) {
            return working<C>(pixelOrFill(texture, column, row), k);
        };
        const auto along = [&](std::int64_t row) {
            const auto left = corner(columns.first, row);
            if (columns.first == columns.second) return left;
            return between(left, corner(columns.second, row), fx);
        };
        if (outside || texture.data == nullptr) {
            setComponent(result, k, working<C>(texture.fill, k));
        } else if (rows.first == rows.second) {
            setComponent(result, k, along(rows.first));
        } else {
            setComponent(result, k, between(along(rows.first), along(rows.second), fy));
        }
    }
    return result;
}

}  // namespace ruvex::twin
