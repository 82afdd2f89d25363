#include "parameters/presets.h"

#include <gtest/gtest.h>
#include <iterator>
#include <string>

#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"
#include "tests/parameters/released_presets.h"

namespace ruvex {
namespace {

TEST(Presets, AreNamedInTheReleasedOrder) {
    ASSERT_EQ(presetNames().size(), std::size(kReleasedPresetNames));
    for (std::size_t i = 0; i < presetNames().size(); ++i) {
        EXPECT_EQ(presetNames()[i], kReleasedPresetNames[i]);
    }
}

TEST(Presets, AreTheReleasedTableLineByLine) {
    ASSERT_EQ(presetTable().size(), std::size(kReleasedPresets));
    for (std::size_t i = 0; i < presetTable().size(); ++i) {
        const PresetRow& got = presetTable()[i];
        const ReleasedPresetRow& released = kReleasedPresets[i];
        SCOPED_TRACE(released.label);
        EXPECT_EQ(row(got.id).label, released.label);
        for (int preset = 0; preset < kPresetCount; ++preset) {
            const auto value = got.value(preset);
            EXPECT_EQ(value ? formatNumber(*value) : "-", released.values[preset])
                << kReleasedPresetNames[preset];
        }
    }
}

TEST(Presets, AreFoundByName) {
    for (int i = 0; i < kPresetCount; ++i) EXPECT_EQ(findPreset(kReleasedPresetNames[i]), i);
    EXPECT_EQ(findPreset("night vision"), 6);
    EXPECT_EQ(findPreset("Presets..."), std::nullopt);
    EXPECT_EQ(findPreset(""), std::nullopt);
}

TEST(Presets, TouchNeitherBorderAlphaNorTheCrop) {
    for (const PresetRow& preset : presetTable()) {
        const std::string label(row(preset.id).label);
        EXPECT_NE(label, "Border Alpha");
        EXPECT_EQ(label.find("Crop"), std::string::npos) << label;
    }
}

TEST(Presets, StayInTheControlRangesOfTheirParameters) {
    for (const PresetRow& preset : presetTable()) {
        const auto& range = row(preset.id).controlRange;
        if (!range) continue;
        for (int i = 0; i < kPresetCount; ++i) {
            const auto value = preset.value(i);
            if (!value) continue;
            EXPECT_GE(*value, range->low) << row(preset.id).label << ", " << presetNames()[i];
            EXPECT_LE(*value, range->high) << row(preset.id).label << ", " << presetNames()[i];
        }
    }
}

}  // namespace
}  // namespace ruvex
