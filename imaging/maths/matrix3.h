// Plane transforms as 3 by 3 matrices, row-vector convention: (sx, sy, sw) = (x, y, 1) times M.

#pragma once

#include <array>

namespace ruvex {

/// Row-major. Elements 0, 3, 6 give sx, 1, 4, 7 give sy, 2, 5, 8 give sw. Each operation acts on
/// the right: M becomes M times the new transform.
using Matrix3 = std::array<float, 9>;

inline constexpr Matrix3 kIdentity3{1, 0, 0, 0, 1, 0, 0, 0, 1};

void translate(Matrix3& m, float tx, float ty);
void scale(Matrix3& m, float sx, float sy);
/// `angle` in radians.
void rotate(Matrix3& m, float angle);
Matrix3 multiply(const Matrix3& a, const Matrix3& b);
/// Worked out in double. A matrix without an inverse gives zeroes.
Matrix3 inverse(const Matrix3& m);

/// A position carried through a matrix; sw divides sx and sy under perspective.
struct Homogeneous {
    float sx, sy, sw;
};

inline Homogeneous transform(const Matrix3& m, float x, float y) {
    return {x * m[0] + y * m[3] + m[6], x * m[1] + y * m[4] + m[7], x * m[2] + y * m[5] + m[8]};
}

}  // namespace ruvex
