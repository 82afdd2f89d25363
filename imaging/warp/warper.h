// Interface of a warp: maps a position in the output picture to a position in the source.

#pragma once

#include <cstdint>

namespace ruvex {

struct WarpPoint {
    float x, y;
};

struct WarpNormal {
    float x, y, z;
};

/// A rectangle in image space.
struct WarpBounds {
    float minX, maxX, minY, maxY;
};

/// A range of X positions in a row, first <= last.
struct WarpSpan {
    float first, last;
};

/// Maps output positions to source positions, in image space. Points outside `bounds`, or outside a
/// row's `rowSpan`, do not move. After `prepare` the functions are const and may be called from all
/// threads.
class VxWarper {
public:
    virtual ~VxWarper() = default;

    /// A rectangle that contains all points that move.
    virtual void bounds(WarpBounds& result) const = 0;
    /// The part of row y in which points move; (0, 0) if none does.
    virtual void rowSpan(WarpSpan& result, std::int32_t y) const = 0;
    /// `warpAmount` that also gives the normal of the surface the warp imitates.
    virtual float warpAmountNormal(WarpPoint& point, WarpNormal& normal, float amount) const;
    /// `warp` that also gives this normal.
    virtual float warpNormal(WarpPoint& point, WarpNormal& normal) const;
    /// Moves the point by a fraction of the warp: 0 not at all, 1 like `warp`.
    virtual float warpAmount(WarpPoint& point, float amount) const = 0;
    /// Moves the point. Returns its distance from the centre of the warp, 0 to 1.
    virtual float warp(WarpPoint& point) const = 0;
    /// Called before the other functions, once width, height and aspect are set.
    virtual void prepare() {}

    /// `warp` for the centres of `count` pixels of a row: sx[i], sy[i] is the source position of
    /// pixel (x + i, y).
    virtual void warpRow(std::int32_t x, std::int32_t y, std::int32_t count, float* sx,
                         float* sy) const;

    std::int32_t width = 0;
    std::int32_t height = 0;
    float aspect = 1.0f;  ///< pixel aspect
};

}  // namespace ruvex
