// Transforms of the plane as 3 by 3 matrices, applied to row vectors: (sx, sy, sw) = (x, y, 1) * M.

#pragma once

#include <array>

namespace ruvex {

/// Row-major: sx comes from elements 0, 3, 6, sy from 1, 4, 7 and sw from 2, 5, 8. translate, scale
/// and rotate multiply from the right: M becomes M * the new transform.
using Matrix3 = std::array<float, 9>;

inline constexpr Matrix3 kIdentity3{1, 0, 0, 0, 1, 0, 0, 0, 1};

void translate(Matrix3& m, float tx, float ty);
void scale(Matrix3& m, float sx, float sy);
/// `angle` in radians.
void rotate(Matrix3& m, float angle);
Matrix3 multiply(const Matrix3& a, const Matrix3& b);
/// The inverse, computed in double. All zeroes if there is none.
Matrix3 inverse(const Matrix3& m);

/// A transformed position. With perspective the point is (sx / sw, sy / sw).
struct Homogeneous {
    float sx, sy, sw;
};

inline Homogeneous transform(const Matrix3& m, float x, float y) {
    return {x * m[0] + y * m[3] + m[6], x * m[1] + y * m[4] + m[7], x * m[2] + y * m[5] + m[8]};
}

}  // namespace ruvex
