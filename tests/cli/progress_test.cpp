#include "cli/progress.h"

#include <gtest/gtest.h>

#include "cli/amount_text.h"

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

TEST(BytesText, HasTheUnitThatFits) {
    EXPECT_EQ(bytesText(0), "0 bytes");
    EXPECT_EQ(bytesText(999), "999 bytes");
    EXPECT_EQ(bytesText(1000), "1.0 kB");
    EXPECT_EQ(bytesText(45'249'000), "45.2 MB");
    EXPECT_EQ(bytesText(3'000'000'000), "3.0 GB");
    EXPECT_EQ(bytesText(2'000'000'000'000'000), "2000.0 TB");
}

TEST(ProgressText, TellsFramesSpeedAndTimeLeft) {
    EXPECT_EQ(progressText(50, 200, 25.0), "50 of 200 frames, 25.0 a second, 6 s left");
    EXPECT_EQ(progressText(1, 10000, 1.0), "1 of 10000 frames, 1.0 a second, 2 h 46 min left");
}

TEST(ProgressText, LeavesOutWhatIsNotKnown) {
    EXPECT_EQ(progressText(0, 200, 0.0), "0 of 200 frames");
    EXPECT_EQ(progressText(7, 7, 0.0), "7 of 7 frames");
    EXPECT_EQ(progressText(200, 200, 25.0), "200 of 200 frames, 25.0 a second");
    EXPECT_EQ(progressText(50, std::nullopt, 12.5), "50 frames, 12.5 a second");
}

}  // namespace
}  // namespace ruvex::cli
