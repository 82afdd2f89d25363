#include "imaging/warp/lens_warper.h"

#include <algorithm>
#include <cmath>

#include "imaging/maths/maths.h"

namespace ruvex {
namespace {

constexpr float kSmallestNormal = 1.1754944e-38f;

struct Point2 {
    double x, y;
};

double dot(const Point2& a, const Point2& b) {
    return a.x * b.x + a.y * b.y;
}

// The surface normal of the lens for a point moved from `before` to `after`: of length w along the
// move, and sqrt(1 - w^2) upwards.
WarpNormal domeNormal(const WarpPoint& before, const WarpPoint& after, float w) {
    const float dx = before.x - after.x;
    const float dy = before.y - after.y;
    const auto length = static_cast<float>(maths::sqrt(dx * dx + dy * dy));
    const auto rise = static_cast<float>(maths::sqrt(std::max(1.0f - w * w, 0.0f)));
    if (length == 0.0f) return {0.0f, 0.0f, rise};
    return {w * dx / length, w * dy / length, rise};
}

// The factor k / (1 - q + k q) for a point at squared distance q, 0 < q < 1, and exponent k,
// written with s = q k / (1 - q). The order of the operations is part of the picture.
float lensFactor(float q, float exponent) {
    const float s = q * exponent / (1.0f - q);
    return s / ((s + 1.0f) * q);
}

}  // namespace

void VxLensWarper::prepare() {
    toUnit = kIdentity3;
    translate(toUnit, -centreX, -centreY);
    scale(toUnit, aspect, 1.0f);
    rotate(toUnit, -rotation);
    scale(toUnit, inverseRadiusX, inverseRadiusY);
    fromUnit = inverse(toUnit);
}

void VxLensWarper::bounds(WarpBounds& result) const {
    const float r = std::max(radiusX, radiusY);
    result = {centreX - r, centreX + r, centreY - r, centreY + r};
}

void VxLensWarper::rowSpan(WarpSpan& result, std::int32_t y) const {
    result = {0.0f, 0.0f};
    if (degenerate()) return;
    constexpr float kStretch = 100.0f;  // pixels between the two points that define the row's line
    const float yc = static_cast<float>(y) + 0.5f;
    const Homogeneous start = transform(toUnit, 0.0f, yc);
    const Homogeneous along = transform(toUnit, kStretch, yc);
    const Point2 p{start.sx, start.sy};
    const Point2 d{double{along.sx} - start.sx, double{along.sy} - start.sy};
    // The row is p + t d in the unit plane. Solve |p + t d|^2 = 1, its intersection with the
    // circle.
    const double a = dot(d, d);
    const double b = 2.0 * dot(p, d);
    const double c = dot(p, p) - 1.0;
    const double discriminant = b * b - 4.0 * a * c;
    if (!(discriminant >= 0.0) || a == 0.0) return;
    const double root = maths::sqrt(discriminant);
    const auto back = [&](double t) {
        const double ux = p.x + t * d.x;
        const double uy = p.y + t * d.y;
        return static_cast<float>(ux * fromUnit[0] + uy * fromUnit[3] + fromUnit[6]);
    };
    const auto [low, high] =
        std::minmax({back((-b - root) / (2.0 * a)), back((-b + root) / (2.0 * a))});
    result = {low, high};
}

void VxLensWarper::pull(WarpPoint& point, float factor) const {
    point.x = centreX + (point.x - centreX) * factor;
    point.y = centreY + (point.y - centreY) * factor;
}

float VxLensWarper::warp(WarpPoint& point) const {
    if (degenerate()) return 0.0f;
    const Homogeneous unit = transform(toUnit, point.x, point.y);
    const float q = unit.sx * unit.sx + unit.sy * unit.sy;
    if (q >= 1.0f) return 1.0f;
    if (std::fabs(q) < kSmallestNormal) return 0.0f;
    const float t = lensFactor(q, exponent);
    pull(point, t);
    return t * q;
}

float VxLensWarper::warpAmount(WarpPoint& point, float amount) const {
    if (degenerate()) return 0.0f;
    const float u = (point.x - centreX) * inverseRadiusX;
    const float v = (point.y - centreY) * inverseRadiusY;
    const float q = u * u + v * v;
    if (q >= 1.0f) return 1.0f;
    if (std::fabs(q) < kSmallestNormal) return 0.0f;
    const float e = (exponent - 1.0f) * amount + 1.0f;
    if (std::fabs(e) < kSmallestNormal) return 0.0f;
    const float t = lensFactor(q, e);
    pull(point, t);
    return t * q;
}

float VxLensWarper::warpNormal(WarpPoint& point, WarpNormal& normal) const {
    const WarpPoint before = point;
    const float w = warp(point);
    normal = domeNormal(before, point, w);
    return w;
}

float VxLensWarper::warpAmountNormal(WarpPoint& point, WarpNormal& normal, float amount) const {
    const WarpPoint before = point;
    const float w = warpAmount(point, amount);
    normal = domeNormal(before, point, w);
    return w;
}

// `warp` for each pixel, without branches, so that the compiler can vectorise the loop.
void VxLensWarper::warpRow(std::int32_t x, std::int32_t y, std::int32_t count, float* sx,
                           float* sy) const {
    const Matrix3 m = toUnit;
    const float k = degenerate() ? 1.0f : exponent;
    const bool moves = !degenerate();
    const float cx = centreX;
    const float cy = centreY;
    const float py = static_cast<float>(y) + 0.5f;
    for (std::int32_t i = 0; i < count; ++i) {
        const float px = static_cast<float>(x + i) + 0.5f;
        const Homogeneous unit = transform(m, px, py);
        const float q = unit.sx * unit.sx + unit.sy * unit.sy;
        const float t = lensFactor(q, k);
        const bool inside = moves & !(q >= 1.0f) & !(std::fabs(q) < kSmallestNormal);
        sx[i] = inside ? cx + (px - cx) * t : px;
        sy[i] = inside ? cy + (py - cy) * t : py;
    }
}

}  // namespace ruvex
