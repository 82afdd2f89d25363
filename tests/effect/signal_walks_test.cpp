#include "effect/signal_walks.h"

#include <cmath>
#include <gtest/gtest.h>

#include "tests/effect/support/noise_count.h"
#include "tests/effect/support/parameter_set.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

// A signal that is wholly gone at any time, so that amounts are their maxima.
ParameterSet& broken(ParameterSet& set) {
    return set.set(Id::MasterBreakup, 100).set(Id::BreakupVariation, 0);
}

// The walks of frame `k` at a rate and at normal speed.
SignalWalks walksOf(const ParameterSet& set, int k, double rate = 25.0) {
    FrameTime time(k / rate, rate);
    time.frame = static_cast<float>(k);
    const SignalLevel level(set.reader(), rate);
    return walkBack(set.reader(), level, time, time.frame, level.at(time.seconds, time.seconds));
}

TEST(SignalWalks, AtTimeZeroOnlyTheVerticalOffsetIsThere) {
    ParameterSet set;
    broken(set).set(Id::ShashThreshold, 0).set(Id::LineThreshold, 0);
    const SignalWalks walks = walksOf(set, 0);
    EXPECT_EQ(walks.lineSum, 0.0);
    EXPECT_EQ(walks.shashFramesOn, 0);
    EXPECT_EQ(walks.verticalSum, 200) << "Vert Offset Max";
}

TEST(SignalWalks, LinesCreepByTheirSpeed) {
    ParameterSet set;
    broken(set);
    EXPECT_NEAR(walksOf(set, 25).lineSum, 100.0, 1e-9) << "100 pixels a second for a second";
    EXPECT_NEAR(walksOf(set, 50).lineSum, 200.0, 1e-9);
    set.set(Id::LineSpeedMax, -40);
    EXPECT_NEAR(walksOf(set, 25).lineSum, -40.0, 1e-9);
    set.set(Id::LineThreshold, 100);
    EXPECT_EQ(walksOf(set, 25).lineSum, 0.0);
}

TEST(SignalWalks, LinesStandStillAtExactlyTheirThreshold) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 0).set(Id::MasterBreakup, 50).set(Id::LineThreshold, 50);
    EXPECT_EQ(walksOf(set, 40).lineSum, 0.0);
}

// Each step acts by the level of the step before it; the first two share the frame's own.
TEST(SignalWalks, EachStepTakesTheLevelOfTheStepBefore) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 0).set(Id::LineThreshold, 0).set(Id::LineSpeedMax, 1000);
    set.animate(Id::MasterBreakup, {{0.099, 0.0}, {0.101, 100.0}});
    // At 10 frames a second the level is 1 at frames 2 and 3 and half way at frame 1. Steps at
    // frames 3, 2 and 1 act by the levels of 3, 3 and 2.
    EXPECT_NEAR(walksOf(set, 3, 10.0).lineSum, 300.0, 1e-4);
    // From frame 1 there is one step, by the level of frame 1.
    EXPECT_NEAR(walksOf(set, 1, 10.0).lineSum, 50.0, 1e-3);
}

TEST(SignalWalks, AtALevelOfOneTheOffsetIsAllOfItsMaximum) {
    ParameterSet set;
    broken(set).set(Id::VertRollThreshold, 100);
    for (int threshold = 0; threshold < 100; ++threshold) {
        set.set(Id::VertOffsetThreshold, threshold);
        EXPECT_EQ(walksOf(set, 0).verticalSum, 200) << threshold;
    }
}

TEST(SignalWalks, ThePictureRollsFromTheOffset) {
    ParameterSet set;
    broken(set);
    EXPECT_EQ(walksOf(set, 1).verticalSum, 240) << "1000 pixels a second at 25 frames a second";
    EXPECT_EQ(walksOf(set, 10).verticalSum, 600);
    set.set(Id::VertOffsetThreshold, 100);
    EXPECT_EQ(walksOf(set, 10).verticalSum, 400);
    set.set(Id::VertRollThreshold, 100);
    EXPECT_EQ(walksOf(set, 10).verticalSum, 0);
}

TEST(SignalWalks, ASlowRollAtAHighRateComesToNothing) {
    ParameterSet set;
    broken(set).set(Id::VertOffsetThreshold, 100).set(Id::VertRollSpeedMax, 119);
    EXPECT_EQ(walksOf(set, 1000, 120.0).verticalSum, 0);
    set.set(Id::VertRollSpeedMax, -119);
    EXPECT_EQ(walksOf(set, 1000, 120.0).verticalSum, 0);
    // Above a pixel a frame only the whole pixels count.
    set.set(Id::VertRollSpeedMax, 239);
    EXPECT_EQ(walksOf(set, 1000, 120.0).verticalSum, 1000);
    set.set(Id::VertRollSpeedMax, -239);
    EXPECT_EQ(walksOf(set, 1000, 120.0).verticalSum, -1000);
}

TEST(SignalWalks, TheRollStartsAnewAfterARecovery) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 0).set(Id::VertOffsetThreshold, 100);
    // Gone, good for a moment at 1 s, and gone again.
    set.animate(Id::MasterBreakup, {{0.95, 100.0}, {0.97, 0.0}, {1.03, 0.0}, {1.05, 100.0}});
    EXPECT_EQ(walksOf(set, 23).verticalSum, 23 * 40);
    // Frames 27 to 30 have rolled; the signal was good at frame 25, and half good around it.
    EXPECT_EQ(walksOf(set, 30).verticalSum, 4 * 40);
}

TEST(SignalWalks, ShashCountsTheFramesOfTheOutput) {
    ParameterSet set;
    broken(set);
    EXPECT_EQ(walksOf(set, 12).shashFramesOn, 12);
    set.set(Id::ShashThreshold, 100);
    EXPECT_EQ(walksOf(set, 12).shashFramesOn, 0);
    // The output's clock counts, wherever the tape is.
    set.set(Id::ShashThreshold, 99);
    const SignalLevel level(set.reader(), 25.0);
    EXPECT_EQ(walkBack(set.reader(), level, {4.0, 25.0}, 3.0f, 1.0f).shashFramesOn, 100);
}

TEST(SignalWalks, AtNormalSpeedAllWalksShareTheirLevels) {
    const ParameterSet set;
    const auto before = fractalNoiseCalls();
    walksOf(set, 1000);
    EXPECT_LE(fractalNoiseCalls() - before, 1001u);
}

TEST(SignalWalks, FramesBeyondThePrecisionOfTheirNumberEndTheWalk) {
    ParameterSet set;
    broken(set);
    const SignalLevel level(set.reader(), 25.0);
    for (const float frame : {16777220.0f, 1e30f, INFINITY, NAN, -5.0f}) {
        FrameTime time(1e30, 25.0);
        time.frame = frame;
        const SignalWalks walks = walkBack(set.reader(), level, time, frame, 1.0f);
        EXPECT_EQ(walks.lineSum, 0.0) << frame;
        EXPECT_EQ(walks.shashFramesOn, 0) << frame;
    }
}

TEST(SignalWalks, SpeedsBeyondAnyPictureAreCutToTheLowestNumber) {
    ParameterSet set;
    broken(set).animate(Id::VertRollSpeedMax, {{0.0, 1e300}});
    EXPECT_EQ(walksOf(set, 3).verticalSum, INT32_MIN);
    set.set(Id::VertRollThreshold, 100).animate(Id::VertOffsetMax, {{0.0, -1e300}});
    EXPECT_EQ(walksOf(set, 3).verticalSum, INT32_MIN);
}

// The stop of a frame as late in a clip as there are frames.
class WalksOfAStoppedFrame : public testing::Test {
protected:
    // A walk may take this many steps until it asks.
    static constexpr std::uint64_t kFewSteps = 10000;
    static constexpr double kRate = 25.0;

    WalksOfAStoppedFrame() {
        record_.reset(nullptr, [](void*, std::atomic<std::uint32_t>*) { return 1u; });
    }

    InterruptionRecord record_;
    const FrameTime time_{16777214 / kRate, kRate};
};

TEST_F(WalksOfAStoppedFrame, EndEarly) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 100).set(Id::LineThreshold, 0).set(Id::VertRollThreshold, 0);
    const ParameterReader reader = set.reader(&record_);
    const auto before = fractalNoiseCalls();
    TapePosition tape;
    tape.playTime = time_.seconds;
    tape.sourcePosition = time_.frame;
    signalAt(reader, time_, tape);
    EXPECT_LT(fractalNoiseCalls() - before, kFewSteps);
    EXPECT_NE(record_.interrupted, 0);
}

TEST_F(WalksOfAStoppedFrame, EndEarlyInThePlayer) {
    ParameterSet set;
    set.set(Id::PlaySpeed, 50);
    tapePosition(set.reader(&record_), time_);
    EXPECT_NE(record_.interrupted, 0) << "the walk asks";
    EXPECT_LT(playStatusAt(set.reader(&record_), time_).framesAtLowSpeed, int{kFewSteps});
    EXPECT_GT(tapePosition(set.reader(), time_).playTime, time_.seconds / 4);
}

}  // namespace
}  // namespace ruvex::test
