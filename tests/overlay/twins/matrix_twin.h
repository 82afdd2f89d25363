// A stack of matrices in double precision.

#pragma once

#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace ruvex::test {

using DoubleMatrix = std::array<std::array<double, 3>, 3>;

inline constexpr DoubleMatrix kDoubleIdentity{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

/// The greatest magnitude of an entry.
inline double greatestOf(const DoubleMatrix& matrix) {
    double greatest = 0;
    for (const auto& row : matrix) {
        for (const double value : row) greatest = std::fmax(greatest, std::fabs(value));
    }
    return greatest;
}

inline DoubleMatrix product(const DoubleMatrix& a, const DoubleMatrix& b) {
    DoubleMatrix sum{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            for (std::size_t k = 0; k < 3; ++k) sum[i][k] += a[i][j] * b[j][k];
        }
    }
    return sum;
}

/// The inverse by Gauss-Jordan elimination with row exchange. The matrix must not be singular.
inline DoubleMatrix inverseOf(DoubleMatrix matrix) {
    DoubleMatrix inverse = kDoubleIdentity;
    for (std::size_t pivot = 0; pivot < 3; ++pivot) {
        std::size_t best = pivot;
        for (std::size_t row = pivot; row < 3; ++row) {
            if (std::fabs(matrix[row][pivot]) > std::fabs(matrix[best][pivot])) best = row;
        }
        std::swap(matrix[pivot], matrix[best]);
        std::swap(inverse[pivot], inverse[best]);
        const double divisor = matrix[pivot][pivot];
        for (std::size_t column = 0; column < 3; ++column) {
            matrix[pivot][column] /= divisor;
            inverse[pivot][column] /= divisor;
        }
        for (std::size_t row = 0; row < 3; ++row) {
            if (row == pivot) continue;
            const double factor = matrix[row][pivot];
            for (std::size_t column = 0; column < 3; ++column) {
                matrix[row][column] -= factor * matrix[pivot][column];
                inverse[row][column] -= factor * inverse[pivot][column];
            }
        }
    }
    return inverse;
}

/// Grows and shrinks like the stack under test, in a vector.
struct MatrixStackTwin {
    void push() {
        if (entries.size() < 32) entries.push_back(entries.back());
    }
    void pop() {
        if (entries.size() > 1) entries.pop_back();
    }
    void multiply(const DoubleMatrix& matrix) { entries.back() = product(matrix, entries.back()); }

    std::vector<DoubleMatrix> entries{kDoubleIdentity};
};

}  // namespace ruvex::test
