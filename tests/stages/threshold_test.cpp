#include "stages/threshold.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace ruvex {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// The level against a threshold, from far below to far above.
struct Row {
    float level, threshold;
    bool above, acts;
};

constexpr Row kRows[] = {
    {-1e30f, 0.5f, false, false},
    {-0.1f, 0.0f, false, false},
    {0.0f, 0.0f, false, false},
    {std::numeric_limits<float>::denorm_min(), 0.0f, true, true},
    {0.25f, 0.5f, false, false},
    {0.5f, 0.5f, false, false},
    {0.50000006f, 0.5f, true, true},
    {0.75f, 0.5f, true, true},
    {1.0f, 0.5f, true, true},
    {1.5f, 0.5f, true, true},
    {1e30f, 0.5f, true, true},
    {1.0f, -3.0f, true, true},
    {1.0f, 0.99999994f, true, true},
    // A threshold of 1 or more switches a fault off, but the level may be above it.
    {1.0f, 1.0f, false, false},
    {1.5f, 1.0f, true, false},
    {3.0f, 2.0f, true, false},
    {kInfinity, 1.0f, true, false},
    {kInfinity, 0.5f, true, true},
    {-kInfinity, 0.5f, false, false},
    {0.5f, kInfinity, false, false},
    {0.5f, -kInfinity, true, true},
    {kNan, 0.5f, false, false},
    {0.5f, kNan, false, false},
    {kNan, kNan, false, false},
};

TEST(Threshold, FromFarBelowToFarAbove) {
    for (const Row& row : kRows) {
        EXPECT_EQ(aboveThreshold(row.level, row.threshold), row.above)
            << row.level << ' ' << row.threshold;
        EXPECT_EQ(actsAt(row.level, row.threshold), row.acts) << row.level << ' ' << row.threshold;
    }
}

TEST(Threshold, AFaultThatDoesNotActHasNoAmount) {
    for (const Row& row : kRows) {
        if (row.acts) continue;
        EXPECT_EQ(stageAmount(row.level, 10.0f, row.threshold), 0.0f);
        EXPECT_EQ(stageAmountDouble(row.level, 10.0, row.threshold), 0.0);
    }
}

TEST(Threshold, AmountsRiseFromTheThresholdToTheMaximum) {
    EXPECT_EQ(stageAmount(0.75f, 10.0f, 0.5f), 5.0f);
    EXPECT_EQ(stageAmount(1.0f, 10.0f, 0.5f), 10.0f);
    EXPECT_EQ(stageAmount(1.5f, 10.0f, 0.5f), 20.0f) << "nothing holds the level to 1";
    EXPECT_EQ(stageAmount(0.75f, -10.0f, 0.5f), -5.0f);
    EXPECT_EQ(stageAmountDouble(0.75f, 10.0, 0.5f), 5.0);
    EXPECT_EQ(stageAmountDouble(1.5f, 10.0, 0.5f), 20.0);
    EXPECT_TRUE(std::isnan(stageAmount(0.75f, kNan, 0.5f)));
}

// What sums over time rely on.
TEST(Threshold, InDoublePrecisionALevelOfOneGivesAllOfTheMaximum) {
    for (int percent = 0; percent < 100; ++percent) {
        const auto threshold = static_cast<float>(percent * 0.01);
        EXPECT_EQ(stageAmountDouble(1.0f, -1000.0, threshold), -1000.0) << percent;
    }
}

TEST(Threshold, TheLineGoesOnBelowTheThreshold) {
    EXPECT_EQ(thresholdLine(0.25f, 1.0f, 0.5f), -0.5f);
    EXPECT_EQ(thresholdLineDouble(0.25f, 1.0, 0.5f), -0.5);
    EXPECT_EQ(thresholdLine(1.5f, 1.0f, 1.0f), kInfinity);
    EXPECT_TRUE(std::isnan(thresholdLine(1.0f, 1.0f, 1.0f)));
}

}  // namespace
}  // namespace ruvex
