#include "overlay/matrix_stack.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "tests/overlay/twins/matrix_twin.h"

namespace ruvex {
namespace {

using test::DoubleMatrix;

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

DoubleMatrix doubleOf(const VxMatrix& matrix) {
    DoubleMatrix result;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            result[row][column] = static_cast<double>(matrix.m[row][column]);
        }
    }
    return result;
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
        const DoubleMatrix expected = test::inverseOf(doubleOf(matrix));
        for (std::size_t r = 0; r < 3; ++r) {
            for (std::size_t c = 0; c < 3; ++c) {
                const double value = expected[r][c];
                EXPECT_NEAR(inverse.m[r][c], value, 1e-6 * (1.0 + std::fabs(value)));
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

/// A scale of 0.6 to 1.6, a rotation and a movement, as the groups of axes multiply them.
VxMatrix randomTransform(std::mt19937& random) {
    std::uniform_real_distribution<float> scale(0.6f, 1.6f), angle(-3.0f, 3.0f), shift(-9.0f, 9.0f);
    const float x = scale(random), y = scale(random), radians = angle(random);
    const float c = std::cos(radians), s = std::sin(radians);
    return {{{x * c, x * s, 0}, {-y * s, y * c, 0}, {shift(random), shift(random), 1}}};
}

/// Each entry within `tolerance` of the greatest one.
void expectNear(const VxMatrix& matrix, const DoubleMatrix& expected, double tolerance) {
    const double distance = tolerance * (1 + test::greatestOf(expected));
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            ASSERT_NEAR(matrix.m[row][column], expected[row][column], distance);
        }
    }
}

TEST(MatrixStack, IsThatOfTheTwinAfterRandomPushesProductsAndPops) {
    // Relative to the greatest entry. One rounding to single precision is 6e-8: the inverse has
    // one, a product of some 40 matrices has about 120.
    constexpr double kTolerance = 1e-5, kInverseTolerance = 1e-7;
    std::mt19937 random(21);
    int fullest = 0;
    for (int round = 0; round < 50; ++round) {
        VxMatrixStack stack;
        test::MatrixStackTwin twin;
        for (int step = 0; step < 200; ++step) {
            const unsigned kind = random() % 32;
            if (kind < 20) {
                stack.push();
                twin.push();
                const VxMatrix matrix = randomTransform(random);
                stack.multiply(matrix);
                twin.multiply(doubleOf(matrix));
            }
            // One entry, or now and then all of them.
            const int pops = kind < 20 ? 0 : kind == 31 ? 40 : 1;
            for (int i = 0; i < pops; ++i) {
                stack.pop();
                twin.pop();
            }
            fullest = std::max(fullest, stack.depth());
            ASSERT_EQ(stack.depth() + 1, static_cast<int>(twin.entries.size()));
            expectNear(stack.top(), twin.entries.back(), kTolerance);
            // The inverse is computed from the rounded top.
            expectNear(stack.inverse(), test::inverseOf(doubleOf(stack.top())), kInverseTolerance);
            if (testing::Test::HasFatalFailure()) return;
        }
    }
    EXPECT_EQ(fullest, 31);
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
