#include "effect/player.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "tests/effect/support/parameter_set.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

TapePosition tapeAt(const ParameterSet& set, int k, double rate = 25.0) {
    return tapePosition(set.reader(), {k / rate, rate});
}

PlayStatus playAt(const ParameterSet& set, int k, double rate = 25.0) {
    FrameTime time(k / rate, rate);
    time.frame = static_cast<float>(k);
    return playStatusAt(set.reader(), time);
}

std::vector<int> sourceFrames(const ParameterSet& set, int count, double rate = 25.0) {
    std::vector<int> frames;
    for (int k = 0; k < count; ++k) frames.push_back(tapeAt(set, k, rate).sourceFrame);
    return frames;
}

constexpr double kUsualRates[] = {
    12.5, 15.0, 24000.0 / 1001, 23.976,         23.98, 24.0, 25.0,  30000.0 / 1001,  29.97,
    30.0, 48.0, 50.0,           60000.0 / 1001, 59.94, 60.0, 100.0, 120000.0 / 1001, 119.88,
    120.0};

// True where the tape at normal speed shows the output's own frame, so that nothing is fetched.
bool showsItsOwnFrame(const ParameterSet& set, double rate, int k) {
    const FrameTime time(k / rate, rate);
    const TapePosition tape = tapePosition(set.reader(), time);
    return tape.playTime == time.seconds && tape.shownFrame == time.frame && tape.sourceFrame == k;
}

TEST(TapePosition, AtNormalSpeedNothingIsFetchedForAMillionFrames) {
    const ParameterSet set;
    for (const double rate : kUsualRates) {
        int wrong = 0;
        for (int k = 0; k <= 1000000; ++k) wrong += !showsItsOwnFrame(set, rate, k);
        EXPECT_EQ(wrong, 0) << rate;
    }
}

// With keys every frame of the time line is looked at, so that only some of them are tried.
TEST(TapePosition, AtNormalSpeedByKeysNothingIsFetchedEither) {
    ParameterSet set;
    set.animate(Id::PlaySpeed, {{0.0, 100.0}, {5.0, 100.0}});
    std::mt19937 random(7);
    for (const double rate : kUsualRates) {
        int wrong = 0;
        for (int k = 0; k <= 1500; ++k) wrong += !showsItsOwnFrame(set, rate, k);
        for (int i = 0; i < 12; ++i) {
            wrong += !showsItsOwnFrame(set, rate, static_cast<int>(random() % 1000001));
        }
        EXPECT_EQ(wrong, 0) << rate;
    }
}

TEST(TapePosition, AtHalfSpeedEachFrameIsShownTwice) {
    ParameterSet set;
    set.set(Id::PlaySpeed, 50);
    for (const double rate : {24.0, 25.0, 29.97}) {
        for (int k = 0; k < 400; ++k) {
            EXPECT_EQ(tapeAt(set, k, rate).sourceFrame, k / 2) << k << " at " << rate;
        }
    }
}

TEST(TapePosition, AStoppedTapeShowsItsFirstFrame) {
    ParameterSet set;
    set.set(Id::PlaySpeed, 0);
    for (const int k : {0, 1, 10, 1000}) {
        const TapePosition tape = tapeAt(set, k);
        EXPECT_EQ(tape.playTime, 0.0);
        EXPECT_EQ(tape.sourcePosition, 0.0f);
        EXPECT_EQ(tape.shownFrame, 0.0f);
    }
}

// Speeds are read at the start of each frame: at k frames after the start the tape has gone the sum
// of the speeds of the k frames before.
TEST(TapePosition, KeyedSpeedSlowsDownStopsAndWindsBack) {
    ParameterSet set;
    set.animate(Id::PlaySpeed, {{0.0, 100.0}, {0.4, 0.0}, {0.8, 0.0}, {1.2, -200.0}});
    std::vector<int> wanted;
    int hundredths = 0;
    for (int k = 0; k < 40; ++k) {
        wanted.push_back(static_cast<int>(std::floor(hundredths / 100.0)));
        hundredths += k <= 10 ? 100 - 10 * k : k <= 20 ? 0 : std::max(-20 * (k - 20), -200);
    }
    EXPECT_EQ(wanted[20], 5);
    EXPECT_EQ(wanted[39], -22);
    EXPECT_EQ(sourceFrames(set, 40), wanted);
}

TEST(TapePosition, WindingBackFromTheStartGoesBelowFrameZero) {
    ParameterSet set;
    set.set(Id::PlaySpeed, -200);
    for (int k = 0; k < 100; ++k) EXPECT_EQ(tapeAt(set, k).sourceFrame, -2 * k);
}

TEST(TapePosition, BeforeTheStartTheTapeStands) {
    const ParameterSet set;
    EXPECT_EQ(tapePosition(set.reader(), {-3.0, 25.0}).playTime, 0.0);
    EXPECT_EQ(tapePosition(set.reader(), {-3.0, 25.0}).shownFrame, 0.0f);
}

TEST(TapePosition, RepeatedFramesGoByThrees) {
    ParameterSet set;
    set.set(Id::RepeatFrames, 3);
    std::vector<float> shown;
    for (int k = 0; k < 9; ++k) shown.push_back(tapeAt(set, k).shownFrame);
    EXPECT_EQ(shown, (std::vector<float>{0, 0, 0, 3, 3, 3, 6, 6, 6}));
    EXPECT_EQ(tapeAt(set, 8).sourceFrame, 8) << "the signal sees the frame before repetition";
}

TEST(TapePosition, OddRatesTimesAndSpeedsGiveSomeFrame) {
    for (const double rate : {0.0, 1e-300, 1.0, 1000.0, 1e39, 1e300}) {
        for (const double time : {-1e300, -7.5, 0.0, 0.3, 40.0}) {
            for (const double speed : {1e300, -1e300, 1e-300, 99.999999}) {
                ParameterSet set;
                set.animate(Id::PlaySpeed, {{0.0, speed}}).set(Id::RepeatFrames, 7);
                const TapePosition tape = tapePosition(set.reader(), {time, rate});
                EXPECT_EQ(tape.shownFrame, std::trunc(tape.shownFrame));
            }
        }
    }
}

TEST(FrameAtPosition, TakesTheFrameThatIsBegun) {
    EXPECT_EQ(frameAtPosition(0.0f), 0);
    EXPECT_EQ(frameAtPosition(2.0f), 2);
    EXPECT_EQ(frameAtPosition(2.5f), 2);
    EXPECT_EQ(frameAtPosition(2.98f), 2);
    EXPECT_EQ(frameAtPosition(-2.0f), -2);
    EXPECT_EQ(frameAtPosition(-2.5f), -3);
    EXPECT_EQ(frameAtPosition(-0.5f), -1);
}

TEST(FrameAtPosition, JustBelowAFrameIsThatFrame) {
    EXPECT_EQ(frameAtPosition(2.991f), 3);
    EXPECT_EQ(frameAtPosition(0.995f), 1);
    EXPECT_EQ(frameAtPosition(-2.005f), -2);
    EXPECT_EQ(frameAtPosition(-0.005f), 0);
}

TEST(FrameAtPosition, EveryFloatHasAFrame) {
    EXPECT_EQ(frameAtPosition(16777216.0f), 16777216);
    for (const float position : {1e30f, INFINITY, NAN}) {
        EXPECT_EQ(frameAtPosition(position), INT32_MIN) << position;
    }
    // Below every number the frame before the lowest is asked for, which wraps.
    EXPECT_EQ(frameAtPosition(-1e30f), INT32_MAX);
}

TEST(RepeatedFrame, FramesBeforeZeroRoundTowardsIt) {
    EXPECT_EQ(repeatedFrame(frameAtPosition(-2.5f), 2), -2);
    EXPECT_EQ(repeatedFrame(-5, 3), -3);
    EXPECT_EQ(repeatedFrame(5, 3), 3);
    EXPECT_EQ(repeatedFrame(INT32_MIN, 20), INT32_MIN + 8);
}

TEST(RepeatedFrame, BelowOneCountsAsOne) {
    for (const int repeat : {1, 0, -1, INT32_MIN}) EXPECT_EQ(repeatedFrame(-7, repeat), -7);
}

TEST(PlayStatus, NormalPlay) {
    const ParameterSet set;
    const PlayStatus play = playAt(set, 50);
    EXPECT_EQ(play.state, PlayState::Normal);
    EXPECT_EQ(play.framesAtLowSpeed, 0);
    EXPECT_EQ(play.speedAtStart, 1.0f);
}

TEST(PlayStatus, FromAHundredUpItWinds) {
    ParameterSet set;
    for (const double speed : {100.001, 200.0, 800.0, -100.0, -800.0}) {
        set.set(Id::PlaySpeed, speed);
        EXPECT_EQ(playAt(set, 50).state, PlayState::Winding) << speed;
        EXPECT_EQ(playAt(set, 50).framesAtLowSpeed, 0) << speed;
        EXPECT_FLOAT_EQ(playAt(set, 50).speedAtStart, static_cast<float>(speed / 100)) << speed;
    }
}

TEST(PlayStatus, SlowFramesAreCountedBackToTheStart) {
    ParameterSet set;
    for (const double speed : {0.0, 99.999, -99.999, 50.0}) {
        set.set(Id::PlaySpeed, speed);
        EXPECT_EQ(playAt(set, 50).state, PlayState::Slow) << speed;
        EXPECT_EQ(playAt(set, 50).framesAtLowSpeed, 50) << speed;
        EXPECT_EQ(playAt(set, 0).framesAtLowSpeed, 0) << speed;
    }
}

TEST(PlayStatus, SlowFramesAreCountedBackToTheLatestFastOne) {
    ParameterSet set;
    set.animate(Id::PlaySpeed, {{0.99, -300.0}, {1.01, 40.0}});
    const PlayStatus play = playAt(set, 35);
    EXPECT_EQ(play.state, PlayState::Slow);
    // Slow at frames 35 to 26, half way down at frame 25, which is fast enough.
    EXPECT_EQ(play.framesAtLowSpeed, 10);
    EXPECT_NEAR(play.speedAtStart, -1.3f, 1e-3);
}

}  // namespace
}  // namespace ruvex::test
