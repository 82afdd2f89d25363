#include "effect/signal_fill.h"

#include <gtest/gtest.h>

#include "effect/percent.h"
#include "tests/effect/support/parameter_set.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

// A frame of a 720 by 576 project rendered at half its width, with wide pixels.
FrameScale halfScale() {
    FrameScale scale;
    scale.pixelsX = 360.0f;
    scale.pixelsY = 576.0f;
    scale.scaleX = 0.5f;
    scale.scaleY = 1.0f;
    scale.scaleMean = 0.75f;
    scale.pixelAspect = 2.0f;
    return scale;
}

struct Frame {
    explicit Frame(const ParameterSet& set, double seconds = 2.0)
        : reader(set.reader()),
          parameters(reader, seconds),
          time(seconds, 25.0),
          scale(halfScale()),
          state{.reader = reader,
                .parameters = parameters,
                .scale = scale,
                .time = time,
                .tape = tapePosition(reader, time),
                .play = playStatusAt(reader, time),
                .signal = {}} {}

    SignalParameters filled(float white = 255.0f) const { return signalParameters(state, white); }

    ParameterReader reader;
    FrameParameters parameters;
    FrameTime time;
    FrameScale scale;
    FrameState state;
};

SignalParameters filled(const ParameterSet& set, double seconds = 2.0) {
    return Frame(set, seconds).filled();
}

TEST(SignalFill, DefaultsAtFullResolution) {
    const SignalParameters s = filled(ParameterSet());
    EXPECT_EQ(s.tvType, TvType::Colour);
    EXPECT_EQ(s.seed, 5);
    EXPECT_EQ(s.sourceFrame, 50);
    EXPECT_EQ(s.sourceFrameIndex, 50);
    EXPECT_EQ(s.outputFrame, 50);
    EXPECT_EQ(s.scale, 0.75f);
    EXPECT_EQ(s.width, 360.0f);
    EXPECT_EQ(s.height, 576.0f);
    EXPECT_EQ(s.contrast, 0.0f);
    EXPECT_EQ(s.colour, 1.0f) << "100% is exactly 1";
    EXPECT_EQ(s.colourDegradeMax, 1.0f);
    EXPECT_EQ(s.colourThreshold, 0.5f);
    EXPECT_EQ(s.numGhosts, 2);
    EXPECT_EQ(s.ghostThreshold, fractionOf(20.0));
    EXPECT_EQ(s.ghostDistance, 25.0f);
    EXPECT_EQ(s.ghostStrength, 1.0f);
    EXPECT_FLOAT_EQ(s.ghostPhase, 1.0f);
    EXPECT_EQ(s.edgeDistortionMax, 50.0f);
    EXPECT_EQ(s.edgeOctaves, 8);
    EXPECT_EQ(s.edgeThreshold, fractionOf(40.0));
    EXPECT_EQ(s.edgeJaggedness, 1.0f);
    EXPECT_FLOAT_EQ(s.edgePhase, 1.0f);
    EXPECT_EQ(s.snowMax, fractionOf(60.0));
    EXPECT_EQ(s.snowThreshold, 0.0f);
    EXPECT_EQ(s.snowSoftness, 3.0f);
    EXPECT_EQ(s.snowSparseness, fractionOf(15.0));
    EXPECT_EQ(s.lineSpacing, 25.0f);
    EXPECT_EQ(s.lineThreshold, 0.5f);
    EXPECT_FALSE(s.dvdMode);
    EXPECT_EQ(s.playState, PlayState::Normal);
    EXPECT_EQ(s.framesAtLowSpeed, 0);
    EXPECT_EQ(s.playSpeedAtStart, 1.0f);
    EXPECT_EQ(s.emInterference, 0.0f);
    EXPECT_EQ(s.whiteDotSoftness, 0.05f);
    EXPECT_EQ(s.verticalRollSpeed, 1000.0f);
    EXPECT_EQ(s.shashType, ShashType::Random);
    EXPECT_EQ(s.shashPeriod, 12);
    EXPECT_EQ(s.shashThreshold, fractionOf(99.0));
    EXPECT_EQ(s.shashAmountMax, 1.0f);
    EXPECT_EQ(s.borderAlpha, BorderAlpha::None);
    EXPECT_NE(s.noiseTable, nullptr);
    EXPECT_EQ(s.originX, 0);
    EXPECT_EQ(s.originY, 0);
}

TEST(SignalFill, LengthsFollowTheResolutionAndTheScale) {
    ParameterSet set;
    set.set(Id::GunAlignRedX, 8).set(Id::GunAlignBlueY, -12).set(Id::SnowSoftness, 6);
    set.set(Id::Resolution, 50).set(Id::WhiteDot, 25);
    Frame frame(set);
    frame.state.signal.walks = {.lineSum = 100.0, .verticalSum = -37, .shashFramesOn = 9};
    frame.state.signal.breakup = 0.625f;
    const SignalParameters s = frame.filled();
    EXPECT_EQ(s.scale, 0.375f);
    EXPECT_EQ(s.width, 180.0f);
    EXPECT_EQ(s.height, 288.0f);
    EXPECT_EQ(s.gunRedX, 2.0f);
    EXPECT_EQ(s.gunBlueY, -6.0f);
    EXPECT_EQ(s.snowSoftness, 3.0f) << "not scaled by the size";
    EXPECT_EQ(s.lineOffset, 25.0f);
    EXPECT_EQ(s.verticalOffset, -18) << "cut towards zero";
    EXPECT_EQ(s.verticalRollSpeed, 500.0f);
    EXPECT_EQ(s.shashFramesOn, 9);
    EXPECT_EQ(s.breakup, 0.625f);
    EXPECT_EQ(s.whiteDot, 0.25f);
}

TEST(SignalFill, TintIsAPartOfWhite) {
    const ParameterSet set;
    const SignalParameters bytes = Frame(set).filled(255.0f), deep = Frame(set).filled(16384.0f);
    EXPECT_EQ(bytes.tint[0], 63.75f);
    EXPECT_FLOAT_EQ(bytes.tint[1], 165.75f);
    EXPECT_EQ(deep.tint[0], 4096.0f);
    EXPECT_FLOAT_EQ(deep.tint[2], 4915.2f);
}

TEST(SignalFill, OtherTypesOfTelevisionAreColour) {
    ParameterSet set;
    const std::pair<int, int> types[] = {{0, 0}, {1, 1}, {2, 2}, {3, 0}, {-1, 0}, {77, 0}};
    for (const auto& [stored, wanted] : types) {
        EXPECT_EQ(filled(set.set(Id::TvType, stored)).tvType, TvType{wanted});
    }
}

TEST(SignalFill, ChoicesHaveTheNumbersOfTheirLabels) {
    const auto label = [](Id id, auto choice) {
        return row(id).choices[static_cast<std::size_t>(choice)].label;
    };
    EXPECT_EQ(label(Id::TvType, TvType::Colour), "Colour");
    EXPECT_EQ(label(Id::TvType, TvType::BlackAndWhite), "B & W");
    EXPECT_EQ(label(Id::TvType, TvType::Tint), "Tint");
    EXPECT_EQ(label(Id::BorderAlpha, BorderAlpha::None), "None");
    EXPECT_EQ(label(Id::BorderAlpha, BorderAlpha::Full), "Full");
    EXPECT_EQ(label(Id::BorderAlpha, BorderAlpha::Banded), "Banded");
    EXPECT_EQ(label(Id::ShashType, ShashType::Grain), "Type 1");
    EXPECT_EQ(label(Id::ShashType, ShashType::Streaks), "Type 5");
    EXPECT_EQ(label(Id::ShashType, ShashType::Random), "Random");
}

TEST(SignalFill, UnknownChoicesKeepTheirNumbers) {
    ParameterSet set;
    for (const int number : {-1, 6, 77, INT32_MIN}) {
        set.set(Id::BorderAlpha, number).set(Id::ShashType, number);
        EXPECT_EQ(filled(set).borderAlpha, BorderAlpha{number});
        EXPECT_EQ(filled(set).shashType, ShashType{number});
    }
}

TEST(SignalFill, ValuesKeyedBeyondTheirRangeAreHeld) {
    ParameterSet set;
    set.animate(Id::LineSpacing, {{0.0, -40.0}}).animate(Id::GunAlignGreenX, {{0.0, 5000.0}});
    set.animate(Id::GunAlignGreenY, {{0.0, -1e300}}).animate(Id::EdgeThreshold, {{0.0, 400.0}});
    const SignalParameters s = filled(set);
    EXPECT_EQ(s.lineSpacing, 0.5f) << "1 pixel of the project";
    EXPECT_EQ(s.gunGreenX, 500.0f);
    EXPECT_EQ(s.gunGreenY, -1000.0f);
    EXPECT_EQ(s.edgeThreshold, 1.0f);
}

TEST(SignalFill, SnowKeepsItsSign) {
    ParameterSet set;
    EXPECT_EQ(filled(set.set(Id::SnowMax, -150)).snowMax, -1.5f);
}

TEST(SignalFill, NegativeLineSpeedRunsTheLinesTheOtherWay) {
    const ParameterSet set;
    Frame frame(set);
    frame.state.signal.walks.lineSum = -80.0;
    EXPECT_EQ(frame.filled().lineOffset, -40.0f);
}

TEST(SignalFill, APlayModeOtherThanVideoIsDvd) {
    ParameterSet set;
    EXPECT_TRUE(filled(set.set(Id::PlayMode, 1)).dvdMode);
    EXPECT_TRUE(filled(set.set(Id::PlayMode, 7)).dvdMode);
}

TEST(SignalFill, OnAStoppedTapeThePhasesStandStill) {
    ParameterSet set;
    set.set(Id::PlaySpeed, 0);
    for (const double seconds : {0.0, 1.0, 60.0}) {
        EXPECT_EQ(filled(set, seconds).ghostPhase, 0.0f);
        EXPECT_EQ(filled(set, seconds).edgePhase, 0.0f);
    }
    // At half the speed they take twice the time, and winding back takes them back.
    set.set(Id::PlaySpeed, 50);
    EXPECT_NEAR(filled(set, 4.0).ghostPhase, 1.0f, 1e-4f);
    set.animate(Id::PlaySpeed, {{0.99, 100.0}, {1.01, -100.0}});
    EXPECT_NEAR(filled(set, 1.8).edgePhase, filled(set, 0.2).edgePhase, 0.03f);
}

TEST(SignalFill, AShashPeriodIsCutToWholeFrames) {
    ParameterSet set;
    EXPECT_EQ(filled(set.set(Id::ShashPeriod, 0.0)).shashPeriod, 0);
    EXPECT_EQ(filled(set.set(Id::ShashPeriod, 0.0799)).shashPeriod, 1);
    EXPECT_EQ(filled(set.set(Id::ShashPeriod, 1e300)).shashPeriod, INT32_MIN);
}

TEST(LineAngle, IsOffTheAxes) {
    EXPECT_EQ(lineAngleRadians(0.0), 0.0008726647f);
    EXPECT_EQ(lineAngleRadians(90.0), 1.571669f);
    EXPECT_EQ(lineAngleRadians(180.0), 3.1424656f);
    EXPECT_EQ(lineAngleRadians(270.0), 4.7132616f);
    EXPECT_EQ(lineAngleRadians(360.0), lineAngleRadians(0.0));
    EXPECT_EQ(lineAngleRadians(-90.0), lineAngleRadians(270.0));
}

TEST(LineAngle, DropsFractionsAndTurns) {
    EXPECT_EQ(lineAngleRadians(10.0), 10.0f * 3.1415927f / 180.0f);
    EXPECT_EQ(lineAngleRadians(10.99), lineAngleRadians(10.0));
    EXPECT_EQ(lineAngleRadians(-0.9), lineAngleRadians(0.0));
    EXPECT_EQ(lineAngleRadians(370.5), lineAngleRadians(10.0));
    EXPECT_EQ(lineAngleRadians(-10.0), lineAngleRadians(350.0));
    for (const double degrees : {1e300, -1e300, 1e10}) {
        EXPECT_GT(lineAngleRadians(degrees), 0.0f);
        EXPECT_LT(lineAngleRadians(degrees), 6.2831855f);
    }
}

TEST(FrameParameters, WhatIsNotAnimatedIsTheSameAtAnyTime) {
    ParameterSet set;
    set.set(Id::Blur, 3.25).set(Id::Seed, 77);
    for (const double seconds : {-5.0, 0.0, 1.0, 1e6}) {
        const FrameParameters parameters(set.reader(), seconds);
        EXPECT_EQ(parameters.real(Id::Blur), 3.25);
        EXPECT_EQ(parameters.integer(Id::Seed), 77);
    }
    set.animate(Id::Blur, {{0.0, 2.0}, {2.0, 4.0}});
    EXPECT_EQ(FrameParameters(set.reader(), 1.0).real(Id::Blur), 3.0);
}

TEST(FrameParameters, APercentageIsNarrowedToItsFraction) {
    ParameterSet set;
    const auto resolutionOf = [&](double percent) {
        return FrameParameters(set.set(Id::Resolution, percent).reader(), 0.0)
            .fraction(Id::Resolution);
    };
    EXPECT_EQ(resolutionOf(100), 1.0f);
    EXPECT_LT(resolutionOf(99.99), 1.0f);
    EXPECT_EQ(resolutionOf(1), 0.01f);
    EXPECT_EQ(resolutionOf(250), 1.0f);
    EXPECT_EQ(resolutionOf(-250), 0.0f);
}

}  // namespace
}  // namespace ruvex::test
