#include "parameters/parameter_table.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>

#include "parameters/label_match.h"
#include "parameters/parameter_text.h"
#include "tests/parameters/released_parameters.h"

namespace ruvex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string kindName(ParameterKind kind) {
    switch (kind) {
        case ParameterKind::Real:
            return "real";
        case ParameterKind::Int:
            return "int";
        case ParameterKind::Enum:
            return "enum";
        case ParameterKind::Bool:
            return "bool";
        case ParameterKind::UiInt:
            return "ui int";
        case ParameterKind::UiBool:
            return "ui bool";
    }
    return "?";
}

std::string defaultText(const ParameterRow& row) {
    if (isCheckBox(row.kind)) return row.defaultInt() != 0 ? "on" : "off";
    return formatNumber(row.defaultValue);
}

std::string controlText(const ParameterRow& row) {
    if (row.controlRange) return formatRange(*row.controlRange);
    if (isCheckBox(row.kind)) return "check box";
    std::string labels;
    for (const Choice& choice : row.choices) {
        if (!labels.empty()) labels += ", ";
        labels += choice.label;
    }
    return labels.empty() ? "none" : labels;
}

TEST(ParameterTable, IsTheReleasedOneLineByLine) {
    ASSERT_EQ(parameterTable().size(), std::size(kReleasedParameters));
    for (std::size_t i = 0; i < parameterTable().size(); ++i) {
        const ParameterRow& row = parameterTable()[i];
        const ReleasedParameter& released = kReleasedParameters[i];
        SCOPED_TRACE(released.label);
        EXPECT_EQ(row.label, released.label);
        EXPECT_EQ(toText(row.identifier), released.identifier);
        EXPECT_EQ(kindName(row.kind), released.kind);
        EXPECT_EQ(defaultText(row), released.defaultValue);
        EXPECT_EQ(controlText(row), released.control);
        EXPECT_EQ(row.clamp ? formatRange(*row.clamp) : "-", released.clamp);
    }
}

TEST(ParameterTable, EnumeratorsNameTheRowsThatTheySayTheyDo) {
    for (std::size_t i = 0; i < kParameterCount; ++i) {
        EXPECT_EQ(row(static_cast<ParameterId>(i)).id, static_cast<ParameterId>(i));
    }
    EXPECT_EQ(row(ParameterId::TvType).label, "TV Type");
    EXPECT_EQ(row(ParameterId::SnowMax).label, "Snow Max");
    EXPECT_EQ(row(ParameterId::MasterBreakup).label, "Master Breakup");
    EXPECT_EQ(row(ParameterId::ShashThreshold).label, "Shash Threshold");
    EXPECT_EQ(row(ParameterId::CropLeft).label, "Crop Left");
    EXPECT_EQ(row(ParameterId::BlankCropped).label, "Blank Cropped");
    EXPECT_EQ(row(ParameterId::DisplayCropped).label, "Display Cropped");
    EXPECT_EQ(row(ParameterId::MaskAlpha).label, "Mask Alpha");
}

TEST(ParameterTable, IdentifiersAndLabelsAreEachUsedOnce) {
    std::set<GUID, GuidLess> identifiers;
    std::set<std::string> labels;
    for (const ParameterRow& row : parameterTable()) {
        EXPECT_TRUE(identifiers.insert(row.identifier).second) << row.label;
        EXPECT_TRUE(labels.insert(bareLabel(row.label)).second) << row.label;
    }
}

TEST(ParameterTable, TheColourGroupsHaveNoParameter) {
    EXPECT_EQ(findParameter(guidFromText("A41E7FAF-37AB-48B5-99C9-C4B83402C0FC")), nullptr);
    EXPECT_EQ(findParameter(guidFromText("F2A92C6A-2302-11D3-AB91-0000E8D8077F")), nullptr);
    EXPECT_EQ(findParameter("Tint Colour"), nullptr);
    EXPECT_EQ(findParameter("Crop Colour"), nullptr);
}

TEST(ParameterTable, OneControlIsWidenedByItsPage) {
    for (const ParameterRow& row : parameterTable()) {
        EXPECT_EQ(row.widerRange.has_value(), row.id == ParameterId::VertRollSpeedMax) << row.label;
    }
    EXPECT_EQ(row(ParameterId::VertRollSpeedMax).enteredRange(), (Range{-10000, 10000}));
    EXPECT_EQ(row(ParameterId::VertOffsetMax).enteredRange(), (Range{-1000, 1000}));
}

TEST(ParameterTable, OnlyWholeNumberControlsSayHowManyDecimals) {
    for (const ParameterRow& row : parameterTable()) {
        EXPECT_EQ(row.decimals.has_value(), row.kind == ParameterKind::Int) << row.label;
        if (row.decimals) {
            EXPECT_EQ(*row.decimals, 0) << row.label;
        }
    }
}

TEST(ParameterTable, ThreeRowsNeverReachThePicture) {
    std::set<std::string_view> unread;
    for (const ParameterRow& row : parameterTable()) {
        if (!row.rendered) unread.insert(row.label);
    }
    EXPECT_EQ(unread,
              (std::set<std::string_view>{"Presets...", "Hide Overlay Controls", "Crop Colour A"}));
}

TEST(ParameterTable, EveryDefaultIsAValueThatCanBeEntered) {
    for (const ParameterRow& row : parameterTable()) {
        if (!isReal(row.kind)) {
            EXPECT_EQ(row.defaultValue, std::floor(row.defaultValue)) << row.label;
        }
        if (row.controlRange) {
            EXPECT_TRUE(row.controlRange->contains(row.defaultValue)) << row.label;
        }
        if (!row.choices.empty()) {
            EXPECT_LT(row.defaultInt(), static_cast<int>(row.choices.size())) << row.label;
        }
    }
}

TEST(ParameterLookup, FindsLabelsWithoutRegardToCaseAndSpaces) {
    EXPECT_EQ(findParameter("Master Breakup"), &row(ParameterId::MasterBreakup));
    EXPECT_EQ(findParameter("master breakup"), &row(ParameterId::MasterBreakup));
    EXPECT_EQ(findParameter("  MASTER   BREAKUP "), &row(ParameterId::MasterBreakup));
    EXPECT_EQ(findParameter("masterbreakup"), &row(ParameterId::MasterBreakup));
    EXPECT_EQ(findParameter("em interference"), &row(ParameterId::EmInterference));
    EXPECT_EQ(findParameter("presets..."), &row(ParameterId::Presets));
    EXPECT_EQ(findParameter("Master Breakdown"), nullptr);
    EXPECT_EQ(findParameter(""), nullptr);
}

TEST(ParameterLookup, FindsEveryRowByLabelAndByIdentifier) {
    for (const ParameterRow& row : parameterTable()) {
        EXPECT_EQ(findParameter(row.label), &row);
        EXPECT_EQ(findParameter(row.identifier), &row);
        EXPECT_EQ(&nearestParameter(row.label), &row);
    }
}

TEST(ParameterLookup, NamesTheNearestLabel) {
    EXPECT_EQ(nearestParameter("Mastr Breakup").label, "Master Breakup");
    EXPECT_EQ(nearestParameter("Reslution").label, "Resolution");
    EXPECT_EQ(nearestParameter("tv color").label, "TV Colour");
    EXPECT_EQ(nearestParameter("GunAlignRedZ").label, "Gun Align Red X");
    EXPECT_EQ(nearestParameter("bluur").label, "Blur");
    EXPECT_EQ(nearestParameter("Tint Colour").label, "Tint Colour R");
    EXPECT_EQ(nearestParameter("").label, "Seed");  // of four characters, and before Blur
}

TEST(LabelDistance, CountsChangesOfACharacter) {
    EXPECT_EQ(labelDistance("", ""), 0u);
    EXPECT_EQ(labelDistance("", "abc"), 3u);
    EXPECT_EQ(labelDistance("abc", ""), 3u);
    EXPECT_EQ(labelDistance("A b C", "abc"), 0u);
    EXPECT_EQ(labelDistance("abc", "abd"), 1u);
    EXPECT_EQ(labelDistance("abc", "bc"), 1u);
    EXPECT_EQ(labelDistance("kitten", "sitting"), 3u);
    EXPECT_EQ(labelDistance("sitting", "kitten"), 3u);
}

TEST(RenderClamp, ResolutionAndWhiteDotAreHeldToPercent) {
    for (const ParameterId id : {ParameterId::Resolution, ParameterId::WhiteDot}) {
        EXPECT_EQ(renderClamp(id, -0.001), 0.0);
        EXPECT_EQ(renderClamp(id, 0.0), 0.0);
        EXPECT_EQ(renderClamp(id, 99.99), 99.99);
        EXPECT_EQ(renderClamp(id, 100.0), 100.0);
        EXPECT_EQ(renderClamp(id, 100.001), 100.0);
        EXPECT_EQ(renderClamp(id, -kInfinity), 0.0);
        EXPECT_EQ(renderClamp(id, kInfinity), 100.0);
    }
}

TEST(RenderClamp, LineSpacingBelowOneRendersAsOne) {
    EXPECT_EQ(renderClamp(ParameterId::LineSpacing, 0.999), 1.0);
    EXPECT_EQ(renderClamp(ParameterId::LineSpacing, -50.0), 1.0);
    EXPECT_EQ(renderClamp(ParameterId::LineSpacing, 1.5), 1.5);
    EXPECT_EQ(renderClamp(ParameterId::LineSpacing, 5000.0), 5000.0);
}

TEST(RenderClamp, GunAlignBeyondAThousandRendersAsAThousand) {
    for (const ParameterId id :
         {ParameterId::GunAlignRedX, ParameterId::GunAlignRedY, ParameterId::GunAlignGreenX,
          ParameterId::GunAlignGreenY, ParameterId::GunAlignBlueX, ParameterId::GunAlignBlueY}) {
        EXPECT_EQ(renderClamp(id, 1000.5), 1000.0);
        EXPECT_EQ(renderClamp(id, -4000.0), -1000.0);
        EXPECT_EQ(renderClamp(id, -999.5), -999.5);
    }
}

TEST(RenderClamp, SnowMaxPassesWithItsSign) {
    EXPECT_EQ(renderClamp(ParameterId::SnowMax, -60.0), -60.0);
    EXPECT_EQ(renderClamp(ParameterId::SnowMax, -20000.0), -20000.0);
    EXPECT_EQ(renderClamp(ParameterId::SnowMax, 20000.0), 20000.0);
}

TEST(RenderClamp, NoNumberCountsAsBelowEveryRange) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(renderClamp(ParameterId::MasterBreakup, nan), 0.0);
    EXPECT_EQ(renderClamp(ParameterId::LineSpacing, nan), 1.0);
    EXPECT_EQ(renderClamp(ParameterId::GunAlignRedX, nan), -1000.0);
    EXPECT_TRUE(std::isnan(renderClamp(ParameterId::SnowMax, nan)));
}

}  // namespace
}  // namespace ruvex
