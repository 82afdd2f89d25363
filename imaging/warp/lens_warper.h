// A radial lens inside an ellipse.

#pragma once

#include "imaging/maths/matrix3.h"
#include "imaging/warp/warper.h"

namespace ruvex {

/// Inside the ellipse a point moves along its line through the centre, in closed form by the factor
/// k / (1 - q + k q), where q is the squared distance from the centre with 1 at the border and k
/// the exponent. The factor is 1 at the border, so that the picture stays in one piece there;
/// everything outside stays. A lens with a radius of 0 moves nothing.
class VxLensWarper : public VxWarper {
public:
    void bounds(WarpBounds& result) const override;
    void rowSpan(WarpSpan& result, std::int32_t y) const override;
    float warpAmountNormal(WarpPoint& point, WarpNormal& normal, float amount) const override;
    float warpNormal(WarpPoint& point, WarpNormal& normal) const override;
    /// Neither rotation nor aspect take part here.
    float warpAmount(WarpPoint& point, float amount) const override;
    float warp(WarpPoint& point) const override;
    void prepare() override;
    void warpRow(std::int32_t x, std::int32_t y, std::int32_t count, float* sx,
                 float* sy) const override;

    float radiusX = 0.0f;  ///< half-axes in pixels
    float radiusY = 0.0f;
    float inverseRadiusX = 0.0f;  ///< 0 for a radius that is nearly 0
    float inverseRadiusY = 0.0f;
    float centreX = 0.0f;
    float centreY = 0.0f;
    float rotation = 0.0f;          ///< radians
    Matrix3 toUnit = kIdentity3;    ///< image space to the unit circle; made by `prepare`
    Matrix3 fromUnit = kIdentity3;  ///< its inverse
    float exponent = 1.0f;          ///< strength: 1 is no lens

private:
    bool degenerate() const { return inverseRadiusX == 0.0f || inverseRadiusY == 0.0f; }
    void pull(WarpPoint& point, float factor) const;
};

}  // namespace ruvex
