#include "parameters/reset_values.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "parameters/parameter_table.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using Page = ParameterPage;

constexpr Page kAllPages[] = {Page::Main,     Page::Guns,  Page::Breakup1,
                              Page::Breakup2, Page::Shash, Page::Effects,
                              Page::Cropping, Page::Help,  Page::Host};

/// A page's rows as "label value" lines, to compare with a list typed by hand.
std::string resetLines(Page page) {
    std::ostringstream lines;
    for (const ParameterValue& reset : resetValues(page)) {
        lines << row(reset.id).label << ' ' << reset.value << '\n';
    }
    return lines.str();
}

TEST(ResetValues, OfTheMainPage) {
    EXPECT_EQ(resetLines(Page::Main),
              "TV Type 0\nSeed 5\nTV Contrast 0\nTV Brightness 0\nTV Colour 100\n"
              "Master Breakup 50\nBreakup Variation 100\nBreakup Speed 50\nPresets... 0\n"
              "Tint Colour R 25\nTint Colour G 65\nTint Colour B 30\n");
}

TEST(ResetValues, OfTheGuns) {
    EXPECT_EQ(resetLines(Page::Guns),
              "TV Brightness Red 0\nTV Brightness Green 0\nTV Brightness Blue 0\n"
              "Gun Align Red X 0\nGun Align Red Y 0\nGun Align Green X 0\nGun Align Green Y 0\n"
              "Gun Align Blue X 0\nGun Align Blue Y 0\n");
}

TEST(ResetValues, OfBreakup1) {
    EXPECT_EQ(resetLines(Page::Breakup1),
              "Colour Degrade Max 100\nColour Threshold 50\nSnow Max 60\nSnow Threshold 0\n"
              "Snow Softness 3\nSnow Sparseness 15\nNum Ghosts 2\nGhosting Threshold 20\n"
              "Ghosting Distance Max 50\nGhosting Strength 100\nGhosting Speed 50\n");
}

TEST(ResetValues, OfBreakup2) {
    EXPECT_EQ(resetLines(Page::Breakup2),
              "Edge Distortion Max 100\nEdge Jaggedness 1\nEdge Threshold 40\nEdge Speed 50\n"
              "Line Angle 10\nLine Spacing 50\nLine Speed Max 100\nLine Threshold 50\n"
              "Vert Offset Max 200\nVert Offset Threshold 80\nVert Roll Speed Max 1000\n"
              "Vert Roll Threshold 90\n");
}

TEST(ResetValues, OfTheShash) {
    EXPECT_EQ(resetLines(Page::Shash),
              "Shash Type 5\nShash Period 0.5\nShash Amount Max 100\nShash Threshold 99\n");
}

TEST(ResetValues, OfTheEffects) {
    EXPECT_EQ(resetLines(Page::Effects),
              "Scanline Width 0\nPlay Mode 0\nPlay Speed 100\nEM Interference 0\nWhite Dot 0\n"
              "Resolution 100\nBlur 0\nRepeat Frames 1\nFish Eye 0\nFish Eye Radius 400\n"
              "Fish Eye Power 40\nFilter 0\nBorder Alpha 0\n");
}

TEST(ResetValues, OfTheCropping) {
    EXPECT_EQ(resetLines(Page::Cropping),
              "Crop Left 0\nCrop Right 100\nCrop Bottom 0\nCrop Top 100\nX Edge Method 2\n"
              "Y Edge Method 2\nCrop Colour R 0\nCrop Colour G 0\nCrop Colour B 0\n"
              "Crop Colour A 0\nDisplay Cropped 0\nBlank Cropped 0\n");
}

TEST(ResetValues, HelpAndTheHostHaveNone) {
    EXPECT_TRUE(resetValues(Page::Help).empty());
    EXPECT_TRUE(resetValues(Page::Host).empty());
}

TEST(ResetValues, CoverEachParameterOfTheirPageOnceAndNoOther) {
    for (const Page page : kAllPages) {
        std::set<Id> seen;
        for (const ParameterValue& reset : resetValues(page)) {
            EXPECT_EQ(row(reset.id).page, page) << row(reset.id).label;
            EXPECT_TRUE(seen.insert(reset.id).second) << row(reset.id).label;
        }
        for (const ParameterRow& parameter : parameterTable()) {
            const bool hasReset = page != Page::Help && page != Page::Host;
            if (parameter.page != page || !hasReset) continue;
            EXPECT_TRUE(seen.contains(parameter.id)) << parameter.label;
        }
    }
}

TEST(ResetValues, LieInTheRangeOfTheControl) {
    for (const Page page : kAllPages) {
        for (const ParameterValue& reset : resetValues(page)) {
            const auto range = row(reset.id).controlRange;
            EXPECT_TRUE(!range || range->contains(reset.value)) << row(reset.id).label;
        }
    }
}

/// The parameters that Reset does not set to their default, with the value that it sets instead. A
/// row is added here when one of the two is changed on purpose.
const std::map<Id, double> kOtherThanDefault = {};

TEST(ResetValues, DifferFromTheDefaultsOnlyWhereListed) {
    std::map<Id, double> different;
    for (const Page page : kAllPages) {
        for (const ParameterValue& reset : resetValues(page)) {
            if (reset.value != row(reset.id).defaultValue) different[reset.id] = reset.value;
        }
    }
    EXPECT_EQ(different, kOtherThanDefault);
}

}  // namespace
}  // namespace ruvex
