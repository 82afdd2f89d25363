#include "adapters/frei0r/frame_rate.h"

#include <gtest/gtest.h>

namespace ruvex::frei0r {
namespace {

TEST(FrameRate, ReadsNumbersAndFractions) {
    EXPECT_EQ(frameRateIn("25"), 25.0);
    EXPECT_EQ(frameRateIn("12.5"), 12.5);
    EXPECT_EQ(frameRateIn("30000/1001"), 30000.0 / 1001.0);
    EXPECT_EQ(frameRateIn("0.01"), 0.01);
    EXPECT_EQ(frameRateIn("100000"), 100000.0);
}

TEST(FrameRate, DecimalsOfNtscAreExact) {
    EXPECT_EQ(frameRateIn("23.976"), 24.0 * 1000.0 / 1001.0);
    EXPECT_EQ(frameRateIn("23.98"), 24.0 * 1000.0 / 1001.0);
    EXPECT_EQ(frameRateIn("119.88"), 120.0 * 1000.0 / 1001.0);
    EXPECT_EQ(frameRateIn("23.99"), 23.99);
    EXPECT_EQ(frameRateIn("29.97"), 30.0 * 1000.0 / 1001.0);
    EXPECT_EQ(frameRateIn("29.970030"), 30000.0 / 1001.0);
    EXPECT_EQ(frameRateIn("59.94"), 60000.0 / 1001.0);
    EXPECT_EQ(frameRateIn("29.98"), 29.98);
}

TEST(FrameRate, RefusesEverythingElse) {
    for (const char* text : {"", "x", "25x", " 25", "0", "-25", "nan", "inf", "1e9", "0.001", "25/",
                             "/25", "25/0", "0/0", "1/2/3", "25 fps"}) {
        EXPECT_FALSE(frameRateIn(text)) << text;
    }
}

}  // namespace
}  // namespace ruvex::frei0r
