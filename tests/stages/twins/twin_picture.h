// A picture in image space, for the plain twins of the television's stages. A twin computes one
// pixel, row or dot from the rules, as slowly as it takes.

#pragma once

#include <cstdint>
#include <vector>

#include "imaging/pixel.h"
#include "imaging/pixel_convert.h"
#include "imaging/threads.h"

namespace ruvex::test {

/// A part of image space; its ends are exclusive.
struct TwinArea {
    int left, top, right, bottom;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    /// Calls visit(x, y) for each of its pixels, row by row.
    void forEach(auto visit) const {
        for (int y = top; y < bottom; ++y) {
            for (int x = left; x < right; ++x) visit(x, y);
        }
    }
};

template <class P>
struct TwinPicture {
    TwinPicture(int x, int y, int columns, int rows)
        : left(x), top(y), width(columns), height(rows) {
        pixels.resize(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    }
    /// All zero, where `other` lies.
    static TwinPicture blankLike(const TwinPicture& other) {
        return {other.left, other.top, other.width, other.height};
    }
    TwinArea area() const { return {left, top, left + width, top + height}; }
    P& at(int x, int y) {
        return pixels[static_cast<std::size_t>(y - top) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x - left)];
    }
    /// Repeating for ever.
    const P& wrapped(std::int64_t x, std::int64_t y) {
        const auto turn = [](std::int64_t i, std::int64_t n) { return ((i % n) + n) % n; };
        return at(left + static_cast<int>(turn(x - left, width)),
                  top + static_cast<int>(turn(y - top, height)));
    }
    /// Reflected for ever, edge pixels twice.
    const P& mirrored(std::int64_t x, std::int64_t y) {
        const auto turn = [](std::int64_t i, std::int64_t n) {
            const std::int64_t e = ((i % (2 * n)) + 2 * n) % (2 * n);
            return e < n ? e : 2 * n - 1 - e;
        };
        return at(left + static_cast<int>(turn(x - left, width)),
                  top + static_cast<int>(turn(y - top, height)));
    }

    int left, top, width, height;
    std::vector<P> pixels;
};

template <class P>
constexpr bool kEightBits = sizeof(P) == 4;
template <class P>
constexpr float kTwinWhite = kEightBits<P> ? 255.0f : 16384.0f;
template <class P>
constexpr float kTwinTop = kEightBits<P> ? 255.0f : 32767.0f;

/// Held to 0..top, then truncated.
template <class P>
typename P::Component heldTwin(float v) {
    if (!(v > 0.0f)) return 0;
    if (v > kTwinTop<P>) v = kTwinTop<P>;
    return static_cast<typename P::Component>(v);
}
template <class P>
int heldTwin(int v) {
    const int top = static_cast<int>(kTwinTop<P>);
    return v < 0 ? 0 : v > top ? top : v;
}

/// The rows of one worker, from a first row on.
struct TwinShare {
    int first, end;
};
inline std::vector<TwinShare> twinShares(int first, int rows, int workers) {
    std::vector<TwinShare> shares;
    for (int w = 0; w < workers; ++w) {
        const RowShare share = shareOfRows(rows, workers, w);
        if (share.first < share.end) shares.push_back({first + share.first, first + share.end});
    }
    return shares;
}

/// What a threshold makes of the level.
inline float rampTwin(float breakup, float max, float threshold) {
    if (threshold >= 1.0f || !(breakup > threshold)) return 0.0f;
    return (breakup - threshold) * max / (1.0f - threshold);
}

}  // namespace ruvex::test
