// Looks on the effect: applied, read back, and the level that follows from them.

#include "looks/session_look.h"

#include <gtest/gtest.h>

#include "looks/level_series.h"
#include "looks/look_file.h"
#include "looks/look_writing.h"
#include "looks/presets.h"
#include "parameters/artefacts.h"
#include "parameters/presets.h"
#include "tests/support/temp_folder.h"

namespace ruvex::looks {
namespace {

using Changes = std::vector<ParameterChange>;

runtime::EffectSession newSession() {
    return runtime::EffectSession({.module = runtime::Module::loadDefault(),
                                   .project = {.width = 720, .height = 576, .frameRate = 25.0}});
}

const ParameterChange& changeOf(const Changes& changes, ParameterId id) {
    return *std::ranges::find_if(changes,
                                 [&](const auto& change) { return rowOf(change).id == id; });
}

TEST(SessionLook, ANewSessionHasTheDefaults) {
    const Changes all = changesOf(newSession());
    ASSERT_EQ(all.size(), parameterTable().size());
    for (const ParameterChange& change : all) {
        EXPECT_EQ(change, (ParameterChange{Setting{rowOf(change).id, rowOf(change).defaultValue}}));
    }
}

TEST(SessionLook, WhatIsAppliedIsReadBack) {
    runtime::EffectSession session = newSession();
    const Animation snow{ParameterId::SnowMax,
                         {{-1.0, 5.0, KeyMode::Hold}, {0.5, 70.0, KeyMode::Smooth}}};
    applyChanges(session,
                 Changes{Setting{ParameterId::TvType, 2}, snow,
                         Setting{ParameterId::Resolution, 12.5}, Setting{ParameterId::FishEye, 1}});
    const Changes all = changesOf(session);
    EXPECT_EQ(changeOf(all, ParameterId::SnowMax), ParameterChange{snow});
    EXPECT_EQ(changeOf(all, ParameterId::TvType),
              (ParameterChange{Setting{ParameterId::TvType, 2}}));
    EXPECT_EQ(changeOf(all, ParameterId::Resolution),
              (ParameterChange{Setting{ParameterId::Resolution, 12.5}}));
}

TEST(SessionLook, ALaterChangeEndsAnEarlierOne) {
    runtime::EffectSession session = newSession();
    const Changes changes = {Animation{ParameterId::SnowMax, {{0.0, 5.0}}},
                             Setting{ParameterId::SnowMax, 7}};
    applyChanges(session, changes);
    EXPECT_EQ(changeOf(changesOf(session), ParameterId::SnowMax), changes[1]);
    EXPECT_EQ(lastChanges(changes), Changes{changes[1]});
}

TEST(SessionLook, ASavedLookGivesTheSameSession) {
    const files::TempFolder folder;
    runtime::EffectSession session = newSession();
    applyChanges(session, presetChanges(*findPreset("Bad Colour TV")));
    saveLook(session, folder.file("look.json"));
    std::vector<std::string> warnings;
    runtime::EffectSession other = newSession();
    const Look saved = readLookFile(folder.file("look.json"), warnings);
    applyChanges(other, saved.changes);
    EXPECT_EQ(changesOf(other), changesOf(session));
    EXPECT_TRUE(warnings.empty());
    EXPECT_EQ(saved.projectSize, std::nullopt);
    saveLook(session, folder.file("sized.json"), ProjectSize{960, 540});
    EXPECT_EQ(readLookFile(folder.file("sized.json"), warnings),
              (Look{.projectSize = ProjectSize{960, 540}, .changes = saved.changes}));
}

TEST(ShiftedKeys, StayOnTheirFrames) {
    // In double, 1.32 - 1 is 0.32000000000000006, after the time of frame 8 at 25 frames a second.
    Animation animation{ParameterId::Resolution, {{1.0, 1, KeyMode::Hold}, {1.32, 2}}};
    ASSERT_TRUE(shiftKeys(animation, -1.0));
    EXPECT_EQ(animation.keys[0].seconds, 0.0);
    EXPECT_EQ(animation.keys[1].seconds, 8 / 25.0);
}

TEST(SessionLook, KeysThatHoldAndEaseGiveTheirLevels) {
    const auto levelAtOneSecond = [](KeyMode mode) {
        runtime::EffectSession session = newSession();
        applyChanges(session,
                     Changes{Setting{ParameterId::BreakupVariation, 0},
                             Animation{ParameterId::MasterBreakup, {{0.0, 0, mode}, {4.0, 100}}}});
        return levelSeries(session, 25, 25, 25.0)->front().level;
    };
    EXPECT_NEAR(levelAtOneSecond(KeyMode::Linear), 0.25f, 1e-6);
    EXPECT_EQ(levelAtOneSecond(KeyMode::Hold), 0.0f);
    EXPECT_NEAR(levelAtOneSecond(KeyMode::Smooth), 0.15625f, 1e-6);
}

TEST(LevelSeries, HasTheValuesOfEachFrame) {
    runtime::EffectSession session = newSession();
    applyChanges(session, Changes{Setting{ParameterId::BreakupVariation, 0},
                                  Animation{ParameterId::MasterBreakup, {{0.0, 0}, {4.0, 100}}}});
    const auto series = levelSeries(session, 25, 75, 25.0);
    ASSERT_TRUE(series);
    ASSERT_EQ(series->size(), 51u);
    EXPECT_EQ(series->front().frame, 25);
    EXPECT_EQ(series->front().seconds, 1.0);
    EXPECT_NEAR(series->front().level, 0.25f, 1e-6);
    EXPECT_NEAR(series->back().level, 0.75f, 1e-6);
}

TEST(LevelSeries, ARequestedStopEndsIt) {
    std::stop_source stop;
    stop.request_stop();
    EXPECT_FALSE(levelSeries(newSession(), 0, 9, 25.0, stop.get_token()));
}

TEST(ThresholdCurves, AreThoseOfTheArtefactsClampedAsTheRenderDoes) {
    runtime::EffectSession session = newSession();
    applyChanges(session, Changes{Animation{ParameterId::SnowThreshold, {{0.0, 0}, {1.0, 100}}},
                                  Setting{ParameterId::EdgeThreshold, 150}});
    const auto curves = thresholdCurves(session, *levelSeries(session, 0, 25, 25.0));
    ASSERT_EQ(curves.size(), artefacts().size());
    for (const ThresholdCurve& curve : curves) {
        EXPECT_EQ(curve.percent.size(), 26u);
        EXPECT_EQ(curve.constant(), curve.artefact->threshold != ParameterId::SnowThreshold);
        const bool isEdge = curve.artefact->threshold == ParameterId::EdgeThreshold;
        EXPECT_LE(curve.percent.back(), 100.0);
        if (isEdge) {
            EXPECT_EQ(curve.percent.front(), 100.0);
        }
    }
}

}  // namespace
}  // namespace ruvex::looks
