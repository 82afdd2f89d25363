#include "adapters/common/parameter_scale.h"

#include <cmath>
#include <gtest/gtest.h>

#include "adapters/common/parameter_name.h"
#include "parameters/parameter_table.h"

namespace ruvex::adapters {
namespace {

const ParameterRow& rowNamed(const char* label) {
    return *findParameter(label);
}

TEST(ParameterScale, TheEndsOfTheControlAreZeroAndOne) {
    for (const ParameterRow& row : parameterTable()) {
        if (!row.controlRange) continue;
        EXPECT_EQ(valueAt(row, 0.0), row.controlRange->low) << row.label;
        EXPECT_EQ(valueAt(row, 1.0), row.controlRange->high) << row.label;
        EXPECT_EQ(valueAt(row, -3.0), row.controlRange->low) << row.label;
        EXPECT_EQ(valueAt(row, HUGE_VAL), row.controlRange->high) << row.label;
        EXPECT_EQ(valueAt(row, positionOf(row, row.defaultValue)), row.defaultValue) << row.label;
    }
}

TEST(ParameterScale, ValuesThatUsersTypeAreExact) {
    const ParameterRow& snow = rowNamed("Snow Max");
    for (int tenth = -2000; tenth <= 2000; ++tenth) {
        const double value = tenth / 10.0;
        EXPECT_EQ(valueAt(snow, positionOf(snow, value)), value);
    }
    EXPECT_EQ(valueAt(snow, 0.575), 30.0);
}

TEST(ParameterScale, IntegersAreRounded) {
    const ParameterRow& seed = rowNamed("Seed");
    for (int value = 0; value <= 10000; ++value) {
        EXPECT_EQ(valueAt(seed, positionOf(seed, value)), value);
    }
    EXPECT_EQ(valueAt(rowNamed("Num Ghosts"), 0.34), 3.0);
}

TEST(ParameterScale, ChannelsOfFloatsArePercent) {
    EXPECT_EQ(channelPercent(0.65f), 65.0);
    EXPECT_EQ(channelPercent(0.3f), 30.0);
    EXPECT_EQ(channelPercent(2.0), 100.0);
    EXPECT_EQ(channelPercent(-1.0), 0.0);
}

TEST(ParameterName, IsTheLabelWithHyphens) {
    EXPECT_EQ(hyphenatedName("TV Type"), "tv-type");
    EXPECT_EQ(hyphenatedName("EM Interference"), "em-interference");
}

TEST(ParameterName, ColoursHaveTheNameOfTheirChannels) {
    EXPECT_EQ(colourLabel(rowNamed("Tint Colour R")), "Tint Colour");
    EXPECT_TRUE(beginsColour(rowNamed("Crop Colour R")));
    EXPECT_FALSE(beginsColour(rowNamed("Crop Colour G")));
    EXPECT_TRUE(isColourChannel(rowNamed("Tint Colour B")));
    EXPECT_TRUE(isColourChannel(rowNamed("Crop Colour A")));
    EXPECT_FALSE(isColourChannel(row(ParameterId::Presets)));
    EXPECT_FALSE(isColourChannel(rowNamed("TV Colour")));
}

}  // namespace
}  // namespace ruvex::adapters
