#include "cli/progress.h"

#include <gtest/gtest.h>

namespace ruvex::cli {
namespace {

TEST(DurationText, IsAsFineAsItIsLong) {
    EXPECT_EQ(durationText(0.0), "0 s");
    EXPECT_EQ(durationText(6.4), "6 s");
    EXPECT_EQ(durationText(59.4), "59 s");
    EXPECT_EQ(durationText(59.6), "1 min 00 s");
    EXPECT_EQ(durationText(125.0), "2 min 05 s");
    EXPECT_EQ(durationText(3599.0), "59 min 59 s");
    EXPECT_EQ(durationText(3600.0), "1 h 00 min");
    EXPECT_EQ(durationText(360000.0 + 150.0), "100 h 02 min");
}

TEST(ProgressText, TellsFramesSpeedAndTimeLeft) {
    EXPECT_EQ(progressText(50, 200, 2.0), "50 of 200 frames, 25.0 a second, 6 s left");
    EXPECT_EQ(progressText(1, 10000, 1.0), "1 of 10000 frames, 1.0 a second, 2 h 46 min left");
}

TEST(ProgressText, LeavesOutWhatIsNotKnown) {
    EXPECT_EQ(progressText(0, 200, 0.5), "0 of 200 frames");
    EXPECT_EQ(progressText(7, 7, 0.0), "7 of 7 frames");
    EXPECT_EQ(progressText(200, 200, 8.0), "200 of 200 frames, 25.0 a second");
    EXPECT_EQ(progressText(50, std::nullopt, 4.0), "50 frames, 12.5 a second");
}

}  // namespace
}  // namespace ruvex::cli
