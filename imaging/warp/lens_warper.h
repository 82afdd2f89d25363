// A warp that looks like a lens inside an ellipse (fish eye).

#pragma once

#include "imaging/maths/matrix3.h"
#include "imaging/warp/warper.h"

namespace ruvex {

/// Inside the ellipse, a point's vector from the centre is multiplied by k / (1 - q + k q). q is
/// the squared distance from the centre, 1 at the border of the ellipse; k is `exponent`. The
/// factor is 1 at the border, so there is no jump, and points outside do not move. A lens with a
/// radius of 0 moves nothing.
class VxLensWarper : public VxWarper {
public:
    void bounds(WarpBounds& result) const override;
    void rowSpan(WarpSpan& result, std::int32_t y) const override;
    float warpAmountNormal(WarpPoint& point, WarpNormal& normal, float amount) const override;
    float warpNormal(WarpPoint& point, WarpNormal& normal) const override;
    /// Ignores rotation and aspect.
    float warpAmount(WarpPoint& point, float amount) const override;
    float warp(WarpPoint& point) const override;
    void prepare() override;
    void warpRow(std::int32_t x, std::int32_t y, std::int32_t count, float* sx,
                 float* sy) const override;

    float radiusX = 0.0f;  ///< half-axes in pixels
    float radiusY = 0.0f;
    float inverseRadiusX = 0.0f;  ///< 1 / radius, or 0 for a radius of nearly 0
    float inverseRadiusY = 0.0f;
    float centreX = 0.0f;
    float centreY = 0.0f;
    float rotation = 0.0f;          ///< radians
    Matrix3 toUnit = kIdentity3;    ///< maps the ellipse to the unit circle; set by `prepare`
    Matrix3 fromUnit = kIdentity3;  ///< inverse of toUnit
    float exponent = 1.0f;          ///< strength; 1: nothing moves

private:
    bool degenerate() const { return inverseRadiusX == 0.0f || inverseRadiusY == 0.0f; }
    void pull(WarpPoint& point, float factor) const;
};

}  // namespace ruvex
