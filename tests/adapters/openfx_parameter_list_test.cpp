#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "adapters/common/parameter_name.h"
#include "adapters/openfx/parameter_list.h"
#include "adapters/openfx/parameter_names.h"
#include "parameters/parameter_table.h"
#include "parameters/reset_values.h"

namespace ruvex::openfx {
namespace {

struct ReleasedParameter {
    const char* name;
    DeclaredKind kind;

    friend bool operator==(const ReleasedParameter& a, const ReleasedParameter& b) {
        return std::string_view(a.name) == b.name && a.kind == b.kind;
    }
    friend void PrintTo(const ReleasedParameter& released, std::ostream* out) {
        *out << released.name;
    }
};

using enum DeclaredKind;

/// What was released. Projects rely on names and kinds: lines are only ever added.
constexpr ReleasedParameter kReleasedParameters[] = {
    {"presets", Choice},
    {"tvType", Choice},
    {"seed", Integer},
    {"tvContrast", Real},
    {"tvBrightness", Real},
    {"tvColour", Real},
    {"masterBreakup", Real},
    {"breakupVariation", Real},
    {"breakupSpeed", Real},
    {"tintColour", Colour},
    {"resetMain", Button},
    {"tvBrightnessRed", Real},
    {"tvBrightnessGreen", Real},
    {"tvBrightnessBlue", Real},
    {"gunAlignRedX", Real},
    {"gunAlignRedY", Real},
    {"gunAlignGreenX", Real},
    {"gunAlignGreenY", Real},
    {"gunAlignBlueX", Real},
    {"gunAlignBlueY", Real},
    {"resetGuns", Button},
    {"colourDegradeMax", Real},
    {"colourThreshold", Real},
    {"numGhosts", Integer},
    {"ghostingThreshold", Real},
    {"ghostingDistanceMax", Real},
    {"ghostingStrength", Real},
    {"ghostingSpeed", Real},
    {"snowMax", Real},
    {"snowThreshold", Real},
    {"snowSoftness", Real},
    {"snowSparseness", Real},
    {"resetBreakup1", Button},
    {"edgeDistortionMax", Real},
    {"edgeJaggedness", Real},
    {"edgeThreshold", Real},
    {"edgeSpeed", Real},
    {"lineAngle", Real},
    {"lineSpacing", Real},
    {"lineSpeedMax", Real},
    {"lineThreshold", Real},
    {"vertOffsetMax", Real},
    {"vertOffsetThreshold", Real},
    {"vertRollSpeedMax", Real},
    {"vertRollThreshold", Real},
    {"resetBreakup2", Button},
    {"shashType", Choice},
    {"shashPeriod", Real},
    {"shashAmountMax", Real},
    {"shashThreshold", Real},
    {"resetShash", Button},
    {"scanlineWidth", Integer},
    {"playMode", Choice},
    {"playSpeed", Real},
    {"emInterference", Real},
    {"whiteDot", Real},
    {"resolution", Real},
    {"blur", Real},
    {"repeatFrames", Integer},
    {"borderAlpha", Choice},
    {"fishEye", CheckBox},
    {"fishEyeRadius", Real},
    {"fishEyePower", Real},
    {"filter", CheckBox},
    {"resetEffects", Button},
    {"cropLeft", Real},
    {"cropRight", Real},
    {"cropBottom", Real},
    {"cropTop", Real},
    {"xEdgeMethod", Choice},
    {"yEdgeMethod", Choice},
    {"cropColour", Colour},
    {"blankCropped", CheckBox},
    {"displayCropped", CheckBox},
    {"resetCropping", Button},
    {"hideOverlayControls", CheckBox},
    {"maskRed", CheckBox},
    {"maskGreen", CheckBox},
    {"maskBlue", CheckBox},
    {"maskAlpha", CheckBox},
    {"resultAlpha", Choice},
    {"firstFrame", Integer},
    {"frameWidth", Integer},
    {"frameHeight", Integer},
    {"resetHost", Button},
};

TEST(OpenFxParameterList, IsTheReleasedOne) {
    std::vector<ReleasedParameter> listed;
    for (const DeclaredParameter& parameter : parameterList()) {
        listed.push_back({parameter.name.c_str(), parameter.kind});
    }
    EXPECT_THAT(listed, testing::ElementsAreArray(kReleasedParameters));
}

TEST(OpenFxParameterList, GroupsAreTheReleasedOnes) {
    std::vector<std::string> names;
    for (const ParameterPage page : groupPages()) names.push_back(groupName(page));
    EXPECT_THAT(names, testing::ElementsAre("mainGroup", "gunsGroup", "breakup1Group",
                                            "breakup2Group", "shashGroup", "effectsGroup",
                                            "croppingGroup", "helpGroup", "hostGroup"));
}

TEST(OpenFxParameterList, HasEveryParameterThatRendersOnce) {
    std::set<std::string> names;
    for (const DeclaredParameter& parameter : parameterList()) names.insert(parameter.name);
    EXPECT_EQ(names.size(), parameterList().size());
    for (const ParameterRow& row : parameterTable()) {
        const DeclaredParameter* const declared = declaredFor(row.id);
        const bool ofPages =
            row.id == ParameterId::Presets || row.id == ParameterId::HideOverlayControls;
        EXPECT_EQ(declared != nullptr, row.rendered || ofPages) << row.label;
        if (!declared) continue;
        EXPECT_EQ(declared->page, row.page) << row.label;
        EXPECT_EQ(declared->rendered, row.rendered) << row.label;
    }
}

TEST(OpenFxParameterList, DefaultsAndRangesAreThoseOfTheRows) {
    for (const ParameterRow& row : parameterTable()) {
        const DeclaredParameter* const declared = declaredFor(row.id);
        if (!declared) continue;
        const int channel = static_cast<int>(row.id) - static_cast<int>(declared->row->id);
        const double factor = declared->kind == Colour ? kPercentOfWhite : 1.0;
        EXPECT_DOUBLE_EQ(declared->defaults[static_cast<std::size_t>(channel)] * factor,
                         row.defaultValue)
            << row.label;
        EXPECT_EQ(declared->range, row.enteredRange()) << row.label;
        EXPECT_EQ(declared->displayRange, row.controlRange) << row.label;
    }
}

TEST(OpenFxParameterList, PresetsBeginWithTheTitle) {
    const auto& choices = parameterList().front().choices;
    ASSERT_GT(choices.size(), 9u);
    EXPECT_EQ(choices[0], "Presets...");
    EXPECT_EQ(choices[1], "Good TV");
    EXPECT_THAT(choices, testing::Contains("Tape Pause"));
}

TEST(OpenFxParameterList, EachPageWithResetValuesHasAButtonAndSoHasTheHostsGroup) {
    for (const ParameterPage page : groupPages()) {
        const DeclaredParameter* const button = findDeclared(resetName(page));
        const bool resets = !resetValues(page).empty() || page == ParameterPage::Host;
        EXPECT_EQ(button != nullptr, resets) << groupLabel(page);
        EXPECT_TRUE(!button || button->page == page) << groupLabel(page);
    }
}

TEST(OpenFxParameterNames, AreLowerCamelCase) {
    EXPECT_EQ(scriptName("X Edge Method"), "xEdgeMethod");
    EXPECT_EQ(scriptName("EM Interference"), "emInterference");
    EXPECT_EQ(scriptName("Presets..."), "presets");
    EXPECT_EQ(scriptName("B & W"), "bW");
    EXPECT_EQ(scriptName(" 2 by-2"), "2By2");
    EXPECT_EQ(scriptName(row(ParameterId::TintColourB)), "tintColour");
    EXPECT_EQ(scriptName(row(ParameterId::TvBrightnessRed)), "tvBrightnessRed");
}

}  // namespace
}  // namespace ruvex::openfx
