#include "adapters/frei0r/frame_clock.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace ruvex::frei0r {
namespace {

constexpr double kNtsc = 30000.0 / 1001.0;
/// What ffmpeg gives at 25 frames per second where its time is garbage.
constexpr double kGarbage = -3.6893488147419103e20;

std::vector<std::int64_t> framesAt(const std::vector<double>& times, double rate,
                                   TimeUnit unit = TimeUnit::Auto) {
    FrameClock clock;
    std::vector<std::int64_t> frames;
    for (const double time : times) frames.push_back(clock.frameAt(time, rate, unit));
    return frames;
}

using Frames = std::vector<std::int64_t>;

TEST(FrameClock, SecondsAreFramesAtEveryRate) {
    for (const double rate : {12.0, 24000.0 / 1001.0, 25.0, kNtsc, 50.0, 60.0, 120.0}) {
        FrameClock clock;
        for (std::int64_t frame = 0; frame < 5000; ++frame) {
            ASSERT_EQ(clock.frameAt(static_cast<double>(frame) / rate, rate), frame);
        }
    }
}

TEST(FrameClock, MillisecondsAreFramesAtEveryRate) {
    for (const double rate : {12.0, 24000.0 / 1001.0, 25.0, kNtsc, 50.0, 60.0, 120.0}) {
        FrameClock clock;
        for (std::int64_t frame = 0; frame < 5000; ++frame) {
            ASSERT_EQ(clock.frameAt(static_cast<double>(frame) / rate * 1000.0, rate), frame);
        }
    }
}

TEST(FrameClock, WholeMillisecondsOfAFileAreFrames) {
    EXPECT_EQ(framesAt({0, 33, 67, 100, 133}, kNtsc), (Frames{0, 1, 2, 3, 4}));
    EXPECT_EQ(framesAt({0, 17, 33, 50}, 60.0), (Frames{0, 1, 2, 3}));
}

TEST(FrameClock, SecondsCutToNanosecondsAreFrames) {
    EXPECT_EQ(framesAt({0, 0.033366666, 0.066733333, 0.1001}, kNtsc), (Frames{0, 1, 2, 3}));
}

TEST(FrameClock, CountsCallsWhoseTimeIsUnusable) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    EXPECT_EQ(framesAt({kGarbage, kGarbage, kGarbage}, 25.0), (Frames{0, 1, 2}));
    EXPECT_EQ(framesAt({nan, infinity, -infinity, -1.0, 1e300}, 25.0), (Frames{0, 1, 2, 3, 4}));
    EXPECT_EQ(framesAt({nan, nan}, 25.0, TimeUnit::Milliseconds), (Frames{0, 1}));
}

TEST(FrameClock, GoesOnFromTheLastFrameWhereTimeBecomesUnusable) {
    EXPECT_EQ(framesAt({0.4, 0.44, kGarbage, kGarbage, 0.0}, 25.0), (Frames{10, 11, 12, 13, 0}));
}

TEST(FrameClock, FramesOfSecondsMayComeInAnyOrderAndTwice) {
    EXPECT_EQ(framesAt({0.16, 0.12, 0.12, 0.28, 0.0}, 25.0), (Frames{4, 3, 3, 7, 0}));
    EXPECT_EQ(framesAt({0.12, 0.28, 0.44}, 25.0), (Frames{3, 7, 11}));
}

TEST(FrameClock, AJumpOfSecondsIsNoMillisecond) {
    EXPECT_EQ(framesAt({0, 10, 10.04, 60}, 25.0), (Frames{0, 250, 251, 1500}));
    EXPECT_EQ(framesAt({0, 1, 2, 3}, 25.0), (Frames{0, 25, 50, 75}));
    // Thumbnails, and clips of few frames per second that several instances share.
    EXPECT_EQ(framesAt({0, 10.5, 21, 31.5, 42}, 25.0), (Frames{0, 263, 525, 788, 1050}));
    EXPECT_EQ(framesAt({0, 5, 10, 15, 20, 60, 100}, 25.0),
              (Frames{0, 125, 250, 375, 500, 1500, 2500}));
    EXPECT_EQ(framesAt({0, 5, 10, 15}, 0.2), (Frames{0, 1, 2, 3}));
    EXPECT_EQ(framesAt({0, 4, 8, 12}, 1.0), (Frames{0, 4, 8, 12}));
}

TEST(FrameClock, SecondsStaySecondsAfterAStepBelowOne) {
    EXPECT_EQ(framesAt({0, 0.04, 40.04, 80.04}, 25.0), (Frames{0, 1, 1001, 2001}));
}

TEST(FrameClock, MillisecondsAtAnotherRateThanTheClipsAreFound) {
    // 60 frames per second at 25: less than half a frame is 0.
    EXPECT_EQ(framesAt({0, 1000.0 / 60, 2000.0 / 60, 50}, 25.0), (Frames{0, 0, 1, 1}));
    EXPECT_EQ(framesAt({0, 1000.0 / kNtsc, 2000.0 / kNtsc}, 25.0), (Frames{0, 1, 2}));
    EXPECT_EQ(framesAt({0, 1000.0 / 300, 2000.0 / 300, 10}, 300.0), (Frames{0, 1, 2, 3}));
}

TEST(FrameClock, AFirstTimeOfManySecondsIsOneInSecondsUnlessItIsAFrameInMilliseconds) {
    EXPECT_EQ(framesAt({2000, 2040}, 25.0), (Frames{50, 51}));
    EXPECT_EQ(framesAt({12.4, 12.44}, 25.0), (Frames{310, 311}));
    EXPECT_EQ(framesAt({1200.04, 1200.16}, 25.0), (Frames{30001, 30004}));
}

TEST(FrameClock, AFirstTimeThatIsAFrameInMillisecondsIsTakenForOne) {
    EXPECT_EQ(framesAt({200, 240}, 25.0), (Frames{5, 6}));
    EXPECT_EQ(framesAt({1000.0 * 7 / kNtsc}, kNtsc), (Frames{7}));
    // Of the frames in seconds only 1 in 1000 looks so, and the next frame settles it.
    EXPECT_EQ(framesAt({39.96, 40.0}, 25.0), (Frames{999, 1000}));
    EXPECT_EQ(framesAt({40.0, 40.04}, 25.0), (Frames{1, 1001}));
}

TEST(FrameClock, ARestartAtZeroIsFrameZero) {
    EXPECT_EQ(framesAt({0, 40, 80, 0, 40}, 25.0), (Frames{0, 1, 2, 0, 1}));
}

TEST(FrameClock, AGivenUnitIsNotGuessed) {
    EXPECT_EQ(framesAt({0, 40, 80}, 25.0, TimeUnit::Seconds), (Frames{0, 1000, 2000}));
    EXPECT_EQ(framesAt({0.0, 0.04, 40}, 25.0, TimeUnit::Milliseconds), (Frames{0, 0, 1}));
}

TEST(FrameClock, NoFrameIsBeyondTheLast) {
    FrameClock clock;
    EXPECT_EQ(clock.frameAt(kLastFrame / 25.0, 25.0, TimeUnit::Seconds), kLastFrame);
    EXPECT_EQ(clock.frameAt(kGarbage, 25.0), kLastFrame);
    EXPECT_EQ(clock.frameAt(1e12, 25.0, TimeUnit::Milliseconds), kLastFrame);
}

}  // namespace
}  // namespace ruvex::frei0r
