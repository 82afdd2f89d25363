#include "imaging/maths/matrix3.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ruvex {
namespace {

using testing::ElementsAre;
using testing::FloatNear;
using testing::Pointwise;

constexpr Matrix3 kCounting{1, 2, 3, 4, 5, 6, 7, 8, 10};
constexpr float kQuarterTurn = 1.5707964f;

TEST(Matrix3, TranslateAddsTheThirdColumn) {
    Matrix3 m = kCounting;
    translate(m, 2.0f, -1.0f);
    EXPECT_THAT(m, ElementsAre(7, -1, 3, 16, -1, 6, 27, -2, 10));
}

TEST(Matrix3, ScaleMultipliesTheFirstTwoColumns) {
    Matrix3 m = kCounting;
    scale(m, 2.0f, 0.5f);
    EXPECT_THAT(m, ElementsAre(2, 1, 3, 8, 2.5f, 6, 14, 4, 10));
}

TEST(Matrix3, RotateTurnsTheFirstTwoColumns) {
    Matrix3 m = kCounting;
    rotate(m, kQuarterTurn);
    EXPECT_THAT(m, Pointwise(FloatNear(1e-5f), Matrix3{-2, 1, 3, -5, 4, 6, -8, 7, 10}));
}

TEST(Matrix3, MultiplyGoesRowTimesColumn) {
    const Matrix3 shift{1, 0, 0, 0, 1, 0, 5, 7, 1};
    EXPECT_THAT(multiply(kCounting, shift), ElementsAre(16, 23, 3, 34, 47, 6, 57, 78, 10));
    EXPECT_EQ(multiply(kIdentity3, kCounting), kCounting);
    EXPECT_EQ(multiply(kCounting, kIdentity3), kCounting);
}

TEST(Matrix3, EachOperationIsAProductOnTheRight) {
    Matrix3 byScale = kCounting, byShift = kCounting;
    scale(byScale, 2.0f, 3.0f);
    EXPECT_EQ(byScale, multiply(kCounting, {2, 0, 0, 0, 3, 0, 0, 0, 1}));
    translate(byShift, 5.0f, 7.0f);
    EXPECT_EQ(byShift, multiply(kCounting, {1, 0, 0, 0, 1, 0, 5, 7, 1}));
}

TEST(Matrix3, TransformTakesPositionsAsRows) {
    const Homogeneous h = transform(kCounting, 2.0f, 3.0f);
    EXPECT_EQ(h.sx, 21.0f);
    EXPECT_EQ(h.sy, 27.0f);
    EXPECT_EQ(h.sw, 34.0f);
}

TEST(Matrix3, AnInverseUndoesATransform) {
    Matrix3 m = kIdentity3;
    translate(m, -7.0f, 3.0f);
    rotate(m, 0.6f);
    scale(m, 2.0f, 0.25f);
    EXPECT_THAT(multiply(m, inverse(m)), Pointwise(FloatNear(1e-5f), kIdentity3));
    EXPECT_THAT(multiply(kCounting, inverse(kCounting)), Pointwise(FloatNear(1e-4f), kIdentity3));
}

TEST(Matrix3, WithoutAnInverseThereAreZeroes) {
    Matrix3 flat = kIdentity3;
    scale(flat, 0.0f, 1.0f);
    EXPECT_EQ(inverse(flat), Matrix3{});
}

}  // namespace
}  // namespace ruvex
