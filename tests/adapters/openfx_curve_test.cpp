#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/openfx/curve_sampling.h"
#include "adapters/openfx/point_merging.h"

namespace ruvex::openfx {
namespace {

using looks::KeyMode;
using testing::ElementsAre;

/// A curve that is a function, and counts how often it is read.
struct FunctionCurve final : HostCurve {
    explicit FunctionCurve(std::function<double(double)> f) : function(std::move(f)) {}

    double valueAt(double frame) const override {
        ++reads;
        return function(frame);
    }

    std::function<double(double)> function;
    mutable int reads = 0;
};

/// The value of keys at a frame, as the effect computes it.
double valueOf(const std::vector<FrameKey>& keys, double frame) {
    std::vector<DSKey> all;
    for (const FrameKey& key : keys) all.push_back({key.frame, key.value, key.mode});
    return DSAnimation::fromKeys(std::move(all))->valueAt(frame);
}

/// Linear from 10 at 0 to 20 at 10, and to 0 at 14.
double polyline(double frame) {
    if (frame <= 0.0) return 10.0;
    if (frame <= 10.0) return 10.0 + frame;
    return frame <= 14.0 ? 20.0 - (frame - 10.0) * 5.0 : 0.0;
}

double steps(double frame) {
    return frame < 10.0 ? 1.0 : frame < 20.0 ? 5.0 : 2.0;
}

TEST(OpenFxCurve, LinearSegmentsKeepTheirKeys) {
    EXPECT_THAT(sampleCurve(FunctionCurve(polyline), {0, 10, 14}, 0, 12),
                ElementsAre(FrameKey{0, 10}, FrameKey{10, 20}, FrameKey{14, 0}));
}

TEST(OpenFxCurve, FloatsOfAHostCountAsLinear) {
    const auto rounded = [](double frame) {
        return static_cast<double>(static_cast<float>(0.1 + frame * (0.7 / 30.0)));
    };
    EXPECT_EQ(sampleCurve(FunctionCurve(rounded), {0, 30}, 0, 30).size(), 2u);
}

TEST(OpenFxCurve, StepsAreHeld) {
    EXPECT_THAT(sampleCurve(FunctionCurve(steps), {0, 10, 20}, 0, 20),
                ElementsAre(FrameKey{0, 1, KeyMode::Hold}, FrameKey{10, 5, KeyMode::Hold},
                            FrameKey{20, 2}));
}

TEST(OpenFxCurve, TheMiddleTellsAStepBetweenNeighboursFromASlope) {
    const auto step = [](double frame) { return frame < 1.0 ? 3.0 : 4.0; };
    EXPECT_EQ(sampleCurve(FunctionCurve(step), {0, 1}, 0, 1).front().mode, KeyMode::Hold);
    const auto slope = [](double frame) { return 3.0 + frame; };
    EXPECT_EQ(sampleCurve(FunctionCurve(slope), {0, 1}, 0, 1).front().mode, KeyMode::Linear);
}

TEST(OpenFxCurve, SmoothSegmentsHaveAKeyForEachFrame) {
    const auto smooth = [](double frame) {
        const double part = std::clamp(frame / 10.0, 0.0, 1.0);
        return 100.0 * part * part * (3.0 - 2.0 * part);
    };
    const auto keys = sampleCurve(FunctionCurve(smooth), {0, 10}, 0, 10);
    EXPECT_GE(keys.size(), 10u);
    for (double frame = 0; frame <= 10; ++frame) {
        EXPECT_DOUBLE_EQ(valueOf(keys, frame), smooth(frame)) << frame;
    }
}

TEST(OpenFxCurve, OnlyFramesUpToTheLastAreRead) {
    const FunctionCurve curve([](double frame) { return frame * frame; });
    const auto keys = sampleCurve(curve, {0, 100000}, 0, 20);
    EXPECT_LT(curve.reads, 30);
    for (double frame = 0; frame <= 20; ++frame) {
        EXPECT_DOUBLE_EQ(valueOf(keys, frame), frame * frame) << frame;
    }
}

TEST(OpenFxCurve, AFieldBetweenTwoFramesHasItsOwnValue) {
    const FunctionCurve curve([](double frame) { return frame * frame; });
    EXPECT_DOUBLE_EQ(valueOf(sampleCurve(curve, {0, 100}, 0, 20.5), 20.5), 20.5 * 20.5);
    EXPECT_DOUBLE_EQ(valueOf(sampleCurve(curve, {}, 0, 20.5), 20.5), 20.5 * 20.5);
}

TEST(OpenFxCurve, ExpressionsAreReadFrameByFrameAndMerged) {
    const FunctionCurve linear([](double frame) { return 2.0 * frame; });
    EXPECT_THAT(sampleCurve(linear, {}, 0, 50), ElementsAre(FrameKey{0, 0}, FrameKey{50, 100}));
    EXPECT_EQ(linear.reads, 51);
    EXPECT_THAT(sampleCurve(FunctionCurve([](double) { return 7.0; }), {}, 0, 50),
                ElementsAre(FrameKey{0, 7, KeyMode::Linear}));
    const FunctionCurve wave([](double frame) { return std::sin(frame); });
    const auto keys = sampleCurve(wave, {}, 0, 50);
    for (double frame = 0; frame <= 50; ++frame) {
        EXPECT_NEAR(valueOf(keys, frame), std::sin(frame), 1e-6) << frame;
    }
}

TEST(OpenFxCurve, WhatIsBeforeAndAfterTheKeysCounts) {
    // The host goes on with the slope of the first and the last segment.
    const FunctionCurve endless([](double frame) { return frame; });
    const auto keys = sampleCurve(endless, {10, 20}, 0, 40);
    EXPECT_EQ(valueOf(keys, 0), 0.0);
    EXPECT_EQ(valueOf(keys, 40), 40.0);
    // And here it holds their values: no more keys than the host has.
    const FunctionCurve held([](double frame) { return std::clamp(frame, 10.0, 20.0); });
    const auto few = sampleCurve(held, {10, 20}, 0, 40);
    EXPECT_EQ(valueOf(few, 5), 10.0);
    EXPECT_EQ(valueOf(few, 15), 15.0);
    EXPECT_EQ(valueOf(few, 35), 20.0);
}

TEST(OpenFxCurve, KeysThatMatterNotAreLeftOut) {
    std::vector<double> frames;
    for (double frame = -1000; frame <= 1000; frame += 10) frames.push_back(frame);
    const FunctionCurve curve([](double frame) { return std::abs(std::remainder(frame, 20.0)); });
    const auto keys = sampleCurve(curve, frames, 0, 35);
    EXPECT_LE(keys.size(), 7u);
    for (double frame = 0; frame <= 35; ++frame) {
        EXPECT_NEAR(valueOf(keys, frame), curve.function(frame), 1e-9) << frame;
    }
}

TEST(OpenFxCurve, OneMomentIsEnoughBeforeTheFirstFrame) {
    const FunctionCurve curve([](double frame) { return frame; });
    EXPECT_THAT(sampleCurve(curve, {}, -5, -5), ElementsAre(FrameKey{-5, -5}));
    EXPECT_EQ(valueOf(sampleCurve(curve, {-10, 10}, -5, -5), -5), -5.0);
    EXPECT_THAT(sampleCurve(curve, {-5, 10}, -5, -5), ElementsAre(FrameKey{-5, -5}));
}

TEST(OpenFxCurve, EndlessCurvesHaveAnEnd) {
    const FunctionCurve curve([](double frame) { return std::sin(frame); });
    EXPECT_LE(sampleCurve(curve, {}, 0, 16777216.0).size(), 100000u);
    EXPECT_LE(curve.reads, 100000);
}

TEST(OpenFxCurve, ValuesBetweenDistantKeysDoNotChangeFromFrameToFrame) {
    const FunctionCurve curve([](double frame) { return 100.0 * std::sin(frame); });
    const std::vector<double> distant{-3.0, 20000.0};
    const auto late = sampleCurve(curve, distant, 0, 19000);
    for (const double last : {101.0, 16383.0, 16387.0, 17001.0}) {
        const auto early = sampleCurve(curve, distant, 0, last);
        for (double frame = std::fmod(last, 100.0); frame <= last; frame += 100.0) {
            ASSERT_NEAR(valueOf(early, frame), valueOf(late, frame), 1e-3) << frame << " " << last;
        }
    }
}

TEST(OpenFxCurve, ChangesHaveSeconds) {
    using looks::Key;
    const auto change = changeOf(ParameterId::Blur, {{0, 1, KeyMode::Hold}, {24, 3}}, 25.0);
    const looks::Animation expected{ParameterId::Blur,
                                    {Key{0, 1, KeyMode::Hold}, Key{0.96, 3, KeyMode::Linear}}};
    EXPECT_EQ(change, looks::ParameterChange(expected));
    EXPECT_EQ(changeOf(ParameterId::Blur, {{5, 2}}, 25.0),
              looks::ParameterChange(looks::Setting{ParameterId::Blur, 2}));
}

TEST(OpenFxPoints, LinesHaveTwoPoints) {
    std::vector<FrameKey> points;
    for (double frame = 0; frame < 30; ++frame) points.push_back({frame, polyline(frame)});
    EXPECT_THAT(mergePoints(points),
                ElementsAre(FrameKey{0, 10}, FrameKey{10, 20}, FrameKey{14, 0}, FrameKey{29, 0}));
}

TEST(OpenFxPoints, ASlowBendIsNoLine) {
    std::vector<FrameKey> points;
    for (double frame = 0; frame < 1000; ++frame) points.push_back({frame, frame * frame * 1e-8});
    const auto merged = mergePoints(points);
    EXPECT_LT(merged.size(), points.size());
    for (const FrameKey& point : points) {
        EXPECT_NEAR(valueOf(merged, point.frame), point.value, 1e-6) << point.frame;
    }
}

}  // namespace
}  // namespace ruvex::openfx
