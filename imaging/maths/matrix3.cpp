#include "imaging/maths/matrix3.h"

#include "imaging/maths/maths.h"

namespace ruvex {

void translate(Matrix3& m, float tx, float ty) {
    for (int row = 0; row < 9; row += 3) {
        m[row] += m[row + 2] * tx;
        m[row + 1] += m[row + 2] * ty;
    }
}

void scale(Matrix3& m, float sx, float sy) {
    for (int row = 0; row < 9; row += 3) {
        m[row] *= sx;
        m[row + 1] *= sy;
    }
}

void rotate(Matrix3& m, float angle) {
    const auto c = static_cast<float>(maths::cos(angle));
    const auto s = static_cast<float>(maths::sin(angle));
    for (int row = 0; row < 9; row += 3) {
        const float first = m[row];
        const float second = m[row + 1];
        m[row] = c * first - s * second;
        m[row + 1] = c * second + s * first;
    }
}

Matrix3 multiply(const Matrix3& a, const Matrix3& b) {
    Matrix3 result{};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            result[row * 3 + column] = a[row * 3] * b[column] + a[row * 3 + 1] * b[3 + column] +
                                       a[row * 3 + 2] * b[6 + column];
        }
    }
    return result;
}

Matrix3 inverse(const Matrix3& m) {
    // The cofactor of an element: with row and column indices modulo 3 the 2 by 2 determinant
    // already has its sign.
    const auto cofactor = [&](int row, int column) {
        const auto at = [&](int r, int c) {
            return static_cast<double>(m[(row + r) % 3 * 3 + (column + c) % 3]);
        };
        return at(1, 1) * at(2, 2) - at(1, 2) * at(2, 1);
    };
    const double determinant =
        m[0] * cofactor(0, 0) + m[1] * cofactor(0, 1) + m[2] * cofactor(0, 2);
    Matrix3 result{};
    if (determinant == 0.0) return result;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            result[row * 3 + column] = static_cast<float>(cofactor(column, row) / determinant);
        }
    }
    return result;
}

}  // namespace ruvex
