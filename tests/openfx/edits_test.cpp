// Presets, resets and what they do to a host's parameters, its undo steps and its controls.

#include "looks/presets.h"
#include "parameters/presets.h"
#include "parameters/reset_values.h"
#include "tests/openfx/built_plug_in.h"

namespace ruvex::ofxhost::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::map<std::string, ParameterState> statesOf(const ParameterSet& set) {
    std::map<std::string, ParameterState> states;
    for (const auto& parameter : set.all()) states[parameter->name()] = parameter->state();
    return states;
}

/// The names of the parameters whose states differ.
std::vector<std::string> changedBetween(const std::map<std::string, ParameterState>& before,
                                        const std::map<std::string, ParameterState>& after) {
    std::vector<std::string> names;
    for (const auto& [name, state] : before) {
        if (!(after.at(name) == state)) names.push_back(name);
    }
    return names;
}

TEST(Edits, APresetIsOneUndoStepAndTheChoiceSpringsBack) {
    for (const bool tells : {true, false}) {
        HostTraits traits;
        traits.tellsPlugInEdits = tells;
        BuiltInstance built(noiseClip(16, 12), traits);
        ParameterSet& parameters = built.instance.parameters();
        built.instance.set("masterBreakup", 33.0);
        built.instance.set("cropLeft", 10.0);
        const auto before = statesOf(parameters);
        const std::size_t steps = parameters.steps().size();
        built.choosePreset("Bad Colour TV");
        EXPECT_EQ(parameters["presets"].state().numbers, std::vector{0.0});
        ASSERT_EQ(parameters.steps().size(), steps + 1);
        EXPECT_EQ(parameters.steps().back().name, "Preset: Bad Colour TV");
        const auto after = statesOf(parameters);
        EXPECT_FALSE(changedBetween(before, after).empty());
        EXPECT_TRUE(built.instance.undo());
        EXPECT_THAT(changedBetween(before, statesOf(parameters)), IsEmpty());
        EXPECT_TRUE(built.instance.redo());
        EXPECT_THAT(changedBetween(after, statesOf(parameters)), IsEmpty());
    }
}

TEST(Edits, WhereTheListCannotBeLeftOutOfUndoTheFirstStepIsThePresetAlone) {
    HostTraits traits;
    traits.ignoresCanUndo = true;
    BuiltInstance built(noiseClip(16, 12), traits);
    ParameterSet& parameters = built.instance.parameters();
    built.instance.set("masterBreakup", 33.0);
    const auto before = statesOf(parameters);
    built.choosePreset("Bad Colour TV");
    const auto after = statesOf(parameters);
    EXPECT_FALSE(changedBetween(before, after).empty());
    EXPECT_TRUE(built.instance.undo());
    EXPECT_THAT(changedBetween(before, statesOf(parameters)), IsEmpty());
    EXPECT_TRUE(built.instance.redo());
    EXPECT_THAT(changedBetween(after, statesOf(parameters)), IsEmpty());
}

TEST(Edits, APresetSetsItsOwnRowsAlone) {
    for (const std::string_view name : presetNames()) {
        BuiltInstance built(noiseClip(16, 12));
        ParameterSet& parameters = built.instance.parameters();
        built.instance.set("cropLeft", 10.0);
        built.instance.set("maskRed", 0.0);
        built.choosePreset(std::string(name));
        EXPECT_EQ(parameters["cropLeft"].state().numbers, std::vector{10.0});
        EXPECT_EQ(parameters["maskRed"].state().numbers, std::vector{0.0});
        for (const auto& change : looks::presetChanges(*findPreset(name))) {
            const ParameterRow& row = looks::rowOf(change);
            for (const auto& parameter : parameters.all()) {
                if (parameter->properties.text(kOfxPropLabel) != row.label) continue;
                EXPECT_EQ(parameter->state().numbers,
                          std::vector{std::get<looks::Setting>(change).value})
                    << name << " " << row.label;
            }
        }
    }
}

TEST(Edits, APresetReplacesKeys) {
    BuiltInstance built(noiseClip(16, 12));
    built.instance.setKeys("masterBreakup", {{0.0, {1.0}}, {10.0, {50.0}}});
    built.choosePreset("Bad Colour TV");
    EXPECT_THAT(built.instance.parameters()["masterBreakup"].state().keys, IsEmpty());
}

TEST(Edits, ALookWithKeysGivesTheHostKeys) {
    BuiltInstance built(noiseClip(16, 12));
    built.choosePreset("Switch Off");
    int animated = 0;
    for (const auto& parameter : built.instance.parameters().all()) {
        animated += parameter->state().keys.size() > 1;
    }
    EXPECT_GT(animated, 0);
    EXPECT_EQ(built.instance.parameters().steps().back().name, "Preset: Switch Off");
    EXPECT_TRUE(built.instance.undo());
    for (const auto& parameter : built.instance.parameters().all()) {
        EXPECT_THAT(parameter->state().keys, IsEmpty()) << parameter->name();
    }
}

TEST(Edits, ResetSetsItsPageBackInOneStep) {
    BuiltInstance built(noiseClip(16, 12));
    ParameterSet& parameters = built.instance.parameters();
    built.choosePreset("Bad Colour TV");
    built.instance.set("cropLeft", 10.0);
    const auto before = statesOf(parameters);
    const std::size_t steps = parameters.steps().size();
    built.instance.press("resetMain");
    ASSERT_EQ(parameters.steps().size(), steps + 1);
    EXPECT_EQ(parameters.steps().back().name, "Reset: Main");
    for (const ParameterValue& reset : resetValues(ParameterPage::Main)) {
        for (const auto& parameter : parameters.all()) {
            if (parameter->properties.text(kOfxPropLabel) != row(reset.id).label) continue;
            EXPECT_EQ(parameter->state().numbers, std::vector{reset.value}) << row(reset.id).label;
        }
    }
    EXPECT_EQ(parameters["cropLeft"].state().numbers, std::vector{10.0});
    EXPECT_TRUE(built.instance.undo());
    EXPECT_THAT(changedBetween(before, statesOf(parameters)), IsEmpty());
}

TEST(Edits, AFrameOfALookIsNotKeptForTheNextLook) {
    BuiltInstance built(noiseClip(16, 12));
    ParameterSet& parameters = built.instance.parameters();
    const auto frame = [&] {
        return std::vector{parameters["frameWidth"].state().numbers.front(),
                           parameters["frameHeight"].state().numbers.front()};
    };
    built.choosePreset("Lost Hold");
    EXPECT_THAT(frame(), ElementsAre(960.0, 540.0));
    built.choosePreset("Bad Colour TV");
    EXPECT_THAT(frame(), ElementsAre(0.0, 0.0));
    EXPECT_TRUE(built.instance.undo());
    EXPECT_THAT(frame(), ElementsAre(960.0, 540.0));
}

TEST(Edits, ResetOfTheHostsGroupSetsMasksAndThePlugInsOwnParametersBack) {
    BuiltInstance built(noiseClip(16, 12));
    ParameterSet& parameters = built.instance.parameters();
    built.choosePreset("Bad Colour TV");
    const auto before = statesOf(parameters);
    for (const char* mask : {"maskRed", "maskGreen", "maskBlue", "maskAlpha"}) {
        built.instance.set(mask, 0.0);
    }
    built.instance.set("resultAlpha", 2.0);
    for (const char* own : {"firstFrame", "frameWidth", "frameHeight"}) {
        built.instance.set(own, 7.0);
    }
    const std::size_t steps = parameters.steps().size();
    built.instance.press("resetHost");
    EXPECT_THAT(changedBetween(before, statesOf(parameters)), IsEmpty());
    ASSERT_EQ(parameters.steps().size(), steps + 1);
    EXPECT_EQ(parameters.steps().back().name, "Reset: Host");
    EXPECT_EQ(parameters["maskRed"].state().numbers, std::vector{1.0});
    EXPECT_EQ(parameters["resultAlpha"].state().numbers, std::vector{0.0});
    EXPECT_EQ(parameters["frameWidth"].state().numbers, std::vector{0.0});
}

TEST(Edits, ControlsAreShownAndEnabledByTheTypeOfTelevision) {
    BuiltInstance built(noiseClip(16, 12));
    ParameterSet& parameters = built.instance.parameters();
    const auto secret = [&](const char* name) {
        return parameters[name].properties.number(kOfxParamPropSecret);
    };
    const auto enabled = [&](const char* name) {
        return parameters[name].properties.number(kOfxParamPropEnabled);
    };
    const auto state = [&] {
        return std::vector{secret("tvColour"), secret("tintColour"), enabled("gunAlignRedX"),
                           enabled("shashPeriod"), enabled("fishEyeRadius")};
    };
    EXPECT_THAT(state(), ElementsAre(0, 1, 1, 1, 0)) << "after creation";
    built.instance.set("tvType", 2.0);
    EXPECT_THAT(state(), ElementsAre(1, 0, 0, 1, 0)) << "tinted";
    built.instance.set("tvType", 1.0);
    EXPECT_THAT(state(), ElementsAre(1, 1, 0, 1, 0)) << "black and white";
    built.instance.set("fishEye", 1.0);
    built.instance.set("shashType", 0.0);
    EXPECT_THAT(state(), ElementsAre(1, 1, 0, 0, 1));
    built.choosePreset("Bad Colour TV");
    EXPECT_EQ(secret("tvColour"), 0) << "after a preset";
}

TEST(Edits, AHostThatRefusesValuesKeepsItsState) {
    HostTraits traits;
    traits.intercept = [](const HostCall& call) {
        return call.function == "paramSetValue" ? kOfxStatFailed : kOfxStatOK;
    };
    BuiltInstance built(noiseClip(16, 12), traits);
    const auto before = statesOf(built.instance.parameters());
    built.instance.press("resetMain");
    EXPECT_THAT(changedBetween(before, statesOf(built.instance.parameters())), IsEmpty());
    EXPECT_EQ(built.instance.parameters().openBlocks(), 0);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
