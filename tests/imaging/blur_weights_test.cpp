#include "imaging/blur/blur_weights.h"

#include <gtest/gtest.h>

namespace ruvex {
namespace {

TEST(BoxWeights, WholeRadius) {
    const BoxWeights weights(1.0f);
    EXPECT_EQ(weights.radius, 1);
    EXPECT_FALSE(weights.fraction);
    EXPECT_FALSE(weights.identity);
    EXPECT_EQ(weights.reach, 1);
    EXPECT_EQ(weights.span, 3);
    EXPECT_EQ(weights.boxWeight, 5461);
    EXPECT_EQ(weights.edgeWeight, 0);
    EXPECT_EQ(weights.boxFactor, 1.0f / 3.0f);
}

TEST(BoxWeights, RadiusOneAndAHalf) {
    const BoxWeights weights(1.5f);
    EXPECT_EQ(weights.radius, 1);
    EXPECT_TRUE(weights.fraction);
    EXPECT_EQ(weights.reach, 2);
    EXPECT_EQ(weights.span, 4);
    EXPECT_EQ(weights.boxWeight, 4096);
    EXPECT_EQ(weights.edgeWeight, 8192);
    EXPECT_EQ(weights.boxFactor, 0.25f);
    EXPECT_EQ(weights.edgeFactor, 0.5f);
}

TEST(BoxWeights, RadiusZeroWeighsOnePixelWhole) {
    const BoxWeights weights(0.0f);
    EXPECT_TRUE(weights.identity);
    EXPECT_EQ(weights.reach, 0);
    EXPECT_EQ(weights.boxWeight, 16384);
}

TEST(BoxWeights, AFractionTooSmallToWeighStillTakesItsPixels) {
    const BoxWeights weights(1e-9f);
    EXPECT_FALSE(weights.identity);
    EXPECT_TRUE(weights.fraction);
    EXPECT_EQ(weights.boxWeight, 16384);
    EXPECT_EQ(weights.edgeWeight, 0);
}

TEST(BoxWeights, WeightsAreTruncated) {
    EXPECT_EQ(BoxWeights(3.0f).boxWeight, 2340);   // 2340.57
    EXPECT_EQ(BoxWeights(0.3f).edgeWeight, 4915);  // 4915.2
    EXPECT_EQ(BoxWeights(9000.0f).boxWeight, 0);   // 0.91
}

// 1 / 1.60000002 is 0.624999991, for which single precision has no nearer number than 0.625.
TEST(BoxWeights, TheReciprocalIsSinglePrecision) {
    EXPECT_EQ(BoxWeights(0.3f).boxWeight, 10240);
}

}  // namespace
}  // namespace ruvex
