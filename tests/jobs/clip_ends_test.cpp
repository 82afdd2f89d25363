#include "jobs/clip_ends.h"

#include <gtest/gtest.h>

namespace ruvex::jobs {
namespace {

TEST(ClipEnds, FramesOfTheClipStandForThemselves) {
    for (const ClipEnds ends : {ClipEnds::Blank, ClipEnds::Hold, ClipEnds::Loop}) {
        for (std::int64_t k = 3; k <= 7; ++k) {
            EXPECT_EQ(frameInClip(k, {3, 7}, ends), k);
        }
    }
}

TEST(ClipEnds, OutsideTheClip) {
    EXPECT_EQ(frameInClip(2, {3, 7}, ClipEnds::Blank), std::nullopt);
    EXPECT_EQ(frameInClip(8, {3, 7}, ClipEnds::Blank), std::nullopt);
    EXPECT_EQ(frameInClip(-9, {3, 7}, ClipEnds::Hold), 3);
    EXPECT_EQ(frameInClip(99, {3, 7}, ClipEnds::Hold), 7);
    const std::int64_t looped[] = {7, 3, 4, 5, 6, 7, 3, 4, 5, 6, 7, 3, 4};
    for (std::int64_t k = -3; k <= 9; ++k) {
        EXPECT_EQ(frameInClip(k, {3, 7}, ClipEnds::Loop), looped[k + 3]) << k;
    }
    EXPECT_EQ(frameInClip(-16777215, {0, 0}, ClipEnds::Loop), 0);
}

}  // namespace
}  // namespace ruvex::jobs
