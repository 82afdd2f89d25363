#include "overlay/matrix_stack.h"

#include <cmath>

namespace ruvex {
namespace {

/// 2^-50. A smaller determinant counts as 0.
constexpr double kSmallestDeterminant = 8.881784197001252e-16;

/// The determinant of the matrix without row `row` and column `column`, with its sign.
double cofactor(const VxMatrix& matrix, int row, int column) {
    const auto at = [&](int i, int k) {
        return static_cast<double>(matrix.m[(row + i) % 3][(column + k) % 3]);
    };
    // Taken in cyclic order, the sign is that of the cofactor.
    return at(1, 1) * at(2, 2) - at(1, 2) * at(2, 1);
}

}  // namespace

VxMatrix operator*(const VxMatrix& a, const VxMatrix& b) {
    VxMatrix product;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            product.m[row][column] = a.m[row][0] * b.m[0][column] + a.m[row][1] * b.m[1][column] +
                                     a.m[row][2] * b.m[2][column];
        }
    }
    return product;
}

VxMatrix invert(const VxMatrix& matrix) {
    double determinant = 0.0;
    for (int column = 0; column < 3; ++column) {
        determinant += matrix.m[0][column] * cofactor(matrix, 0, column);
    }
    VxMatrix inverse;
    if (!(std::fabs(determinant) >= kSmallestDeterminant)) return inverse;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            inverse.m[column][row] =
                static_cast<float>(cofactor(matrix, row, column) / determinant);
        }
    }
    return inverse;
}

const VxMatrix& VxMatrixStack::push() {
    if (depth_ < kEntries - 1) {
        entries_[depth_ + 1] = entries_[depth_];
        ++depth_;
        inverse_ = invert(top());
    }
    return top();
}

const VxMatrix& VxMatrixStack::pop() {
    if (depth_ > 0) {
        --depth_;
        inverse_ = invert(top());
    }
    return top();
}

void VxMatrixStack::multiply(const VxMatrix& matrix) {
    entries_[depth_] = matrix * entries_[depth_];
    inverse_ = invert(top());
}

}  // namespace ruvex
