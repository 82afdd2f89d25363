#include <gtest/gtest.h>
#include <limits>

#include "adapters/openfx/effect_time.h"

namespace ruvex::openfx {
namespace {

using enum adapters::RenderedLines;

TEST(OpenFxTime, FramesCountFromTheFirstOne) {
    const EffectClock clock{.firstFrame = 100, .rate = 25.0};
    EXPECT_EQ(clock.frameAt(100.0), 0.0);
    EXPECT_EQ(clock.frameAt(112.5), 12.5);
    EXPECT_EQ(clock.secondsAt(125.0), 1.0);
    EXPECT_EQ(clock.secondsAt(75.0), -1.0);
    EXPECT_EQ(clock.hostTimeAt(2.0), 150.0);
}

TEST(OpenFxTime, AbsurdTimesAreHeld) {
    const EffectClock clock;
    EXPECT_EQ(clock.frameAt(1e300), kLastFrame);
    EXPECT_EQ(clock.frameAt(-std::numeric_limits<double>::infinity()), -kLastFrame);
    EXPECT_EQ(clock.frameAt(std::numeric_limits<double>::quiet_NaN()), 0.0);
}

TEST(OpenFxTime, AbsurdRatesAreNone) {
    for (const double rate : {0.0, -25.0, 1e9, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_FALSE(isRate(rate)) << rate;
    }
    EXPECT_TRUE(isRate(30000.0 / 1001.0));
}

TEST(OpenFxTime, TheSecondFieldIsHalfAFrameLater) {
    EXPECT_EQ(fieldTime(7.0, LowerField, LowerField), 7.0);
    EXPECT_EQ(fieldTime(7.0, UpperField, LowerField), 7.5);
    EXPECT_EQ(fieldTime(7.0, LowerField, UpperField), 7.5);
    EXPECT_EQ(fieldTime(7.5, UpperField, LowerField), 7.5) << "the host has said so itself";
    EXPECT_EQ(fieldTime(7.0, All, LowerField), 7.0);
    EXPECT_EQ(fieldTime(7.0, UpperField, {}), 7.0) << "the order is not known";
}

}  // namespace
}  // namespace ruvex::openfx
