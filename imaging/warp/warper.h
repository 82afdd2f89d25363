// Saying, for a position in a picture, where in its source to look.

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

/// A stretch of a row, `first` not above `last`.
struct WarpSpan {
    float first, last;
};

/// A warp maps from the output to the source. What lies outside its bounds, or outside a row's
/// span, stays where it is. After `prepare` the operations are const and safe on all threads.
class VxWarper {
public:
    virtual ~VxWarper() = default;

    /// A box that holds everything that moves.
    virtual void bounds(WarpBounds& result) const = 0;
    /// The part of row y that moves; (0, 0) for none.
    virtual void rowSpan(WarpSpan& result, std::int32_t y) const = 0;
    /// `warpAmount` with the normal of the surface that the warp looks like.
    virtual float warpAmountNormal(WarpPoint& point, WarpNormal& normal, float amount) const;
    /// `warp` with that normal.
    virtual float warpNormal(WarpPoint& point, WarpNormal& normal) const;
    /// Moves the point by a part of the warp: 0 is none, 1 all of it.
    virtual float warpAmount(WarpPoint& point, float amount) const = 0;
    /// Moves the point, and returns how far out it lies, 0 to 1.
    virtual float warp(WarpPoint& point) const = 0;
    /// Called once width, height and aspect are known, before anything else.
    virtual void prepare() {}

    /// `warp` for the pixel centres of a stretch of a row: pixel (x + i, y) gets its source
    /// position in sx[i], sy[i].
    virtual void warpRow(std::int32_t x, std::int32_t y, std::int32_t count, float* sx,
                         float* sy) const;

    std::int32_t width = 0;
    std::int32_t height = 0;
    float aspect = 1.0f;  ///< of a pixel
};

}  // namespace ruvex
