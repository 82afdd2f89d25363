#include "overlay/matrix_stack.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace ruvex {
namespace {

constexpr VxMatrix kShift{{{1, 0, 0}, {0, 1, 0}, {5, -3, 1}}};
constexpr VxMatrix kDouble{{{2, 0, 0}, {0, 2, 0}, {0, 0, 1}}};

/// A diagonal matrix with this determinant.
VxMatrix withDeterminant(float value) {
    return {{{value, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
}

VxMatrix randomMatrix(std::mt19937& random) {
    std::uniform_real_distribution<float> entry(-4.0f, 4.0f);
    VxMatrix matrix;
    for (auto& row : matrix.m) {
        for (float& value : row) value = entry(random);
    }
    return matrix;
}

TEST(Matrix, TheProductTakesRowsOfTheFirst) {
    EXPECT_EQ(kShift * VxMatrix(), kShift);
    EXPECT_EQ(VxMatrix() * kShift, kShift);
    EXPECT_EQ(kShift * kDouble, (VxMatrix{{{2, 0, 0}, {0, 2, 0}, {10, -6, 1}}}));
    EXPECT_EQ(kDouble * kShift, (VxMatrix{{{2, 0, 0}, {0, 2, 0}, {5, -3, 1}}}));
}

TEST(Matrix, TheInverseOfASmallDeterminantIsTheIdentity) {
    EXPECT_EQ(invert(kShift), (VxMatrix{{{1, 0, 0}, {0, 1, 0}, {-5, 3, 1}}}));
    EXPECT_EQ(invert(withDeterminant(8.8e-16f)), VxMatrix());
    EXPECT_EQ(invert(withDeterminant(-8.8e-16f)), VxMatrix());
    EXPECT_EQ(invert(withDeterminant(9e-16f)).m[0][0], static_cast<float>(1.0 / 9e-16f));
    EXPECT_EQ(invert(withDeterminant(-9e-16f)).m[0][0], static_cast<float>(-1.0 / 9e-16f));
    EXPECT_EQ(invert(withDeterminant(0.0f)), VxMatrix());
    EXPECT_EQ(invert(withDeterminant(std::nanf(""))), VxMatrix());
}

TEST(Matrix, TheInverseTakesARandomMatrixBack) {
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        const VxMatrix matrix = randomMatrix(random);
        const VxMatrix inverse = invert(matrix);
        // Solved by elimination, as another way to the same numbers.
        double rows[3][6] = {};
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) rows[r][c] = matrix.m[r][c];
            rows[r][3 + r] = 1.0;
        }
        for (int pivot = 0; pivot < 3; ++pivot) {
            int best = pivot;
            for (int r = pivot; r < 3; ++r) {
                if (std::fabs(rows[r][pivot]) > std::fabs(rows[best][pivot])) best = r;
            }
            std::swap(rows[pivot], rows[best]);
            for (int r = 0; r < 3; ++r) {
                if (r == pivot) continue;
                const double factor = rows[r][pivot] / rows[pivot][pivot];
                for (int c = 0; c < 6; ++c) rows[r][c] -= factor * rows[pivot][c];
            }
        }
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) {
                const double expected = rows[r][3 + c] / rows[r][r];
                EXPECT_NEAR(inverse.m[r][c], expected, 1e-6 * (1.0 + std::fabs(expected)));
            }
        }
    }
}

TEST(MatrixStack, MultipliesFromTheLeftAndKeepsTheInverse) {
    VxMatrixStack stack;
    EXPECT_EQ(stack.top(), VxMatrix());
    stack.multiply(kShift);
    stack.multiply(kDouble);
    EXPECT_EQ(stack.top(), kDouble * kShift);
    EXPECT_EQ(stack.inverse(), invert(kDouble * kShift));
}

TEST(MatrixStack, PushesACopyAndPopsBackToIt) {
    VxMatrixStack stack;
    stack.multiply(kShift);
    EXPECT_EQ(stack.push(), kShift);
    stack.multiply(kDouble);
    EXPECT_EQ(stack.pop(), kShift);
    EXPECT_EQ(stack.inverse(), invert(kShift));
    EXPECT_EQ(stack.pop(), kShift) << "the last entry stays";
    EXPECT_EQ(stack.depth(), 0);
}

TEST(MatrixStack, HasRoomFor32Entries) {
    VxMatrixStack stack;
    for (int i = 0; i < 32; ++i) {
        stack.push();
        stack.multiply(kShift);
    }
    EXPECT_EQ(stack.depth(), 31);
    const VxMatrix full = stack.top();
    EXPECT_EQ(stack.push(), full);
    EXPECT_EQ(stack.depth(), 31);
    for (int i = 0; i < 31; ++i) stack.pop();
    EXPECT_EQ(stack.top(), VxMatrix());
}

}  // namespace
}  // namespace ruvex
