// Each preset through the module.

#include "parameters/presets.h"

#include <gtest/gtest.h>

#include "tests/effect/render_fixture.h"

namespace ruvex::test {
namespace {

constexpr runtime::Project kPresetSize{.width = 64, .height = 48};

template <class P>
class PresetFrame : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(PresetFrame, FramePixels);

void choosePreset(Renderer& renderer, int preset) {
    for (const PresetRow& row : presetTable()) {
        if (const auto value = row.value(preset)) renderer.set(row.id, *value);
    }
}

template <class P>
Picture<P> presetPicture(int preset, const Picture<P>& input) {
    Renderer renderer(kPresetSize);
    choosePreset(renderer, preset);
    return renderer.render(input);
}

TYPED_TEST(PresetFrame, EveryPresetRendersTheSamePictureTwice) {
    const auto input = randomPicture<TypeParam>(kPresetSize.width, kPresetSize.height, 11);
    for (int preset = 0; preset < kPresetCount; ++preset) {
        SCOPED_TRACE(presetNames()[preset]);
        const auto picture = presetPicture(preset, input);
        EXPECT_EQ(picture, presetPicture(preset, input));
        const bool untouched = picture == input;
        EXPECT_EQ(untouched, presetNames()[preset] == "Good TV")
            << "a good television shows what it gets, and no other one does";
    }
}

TYPED_TEST(PresetFrame, NoTwoPresetsLookAlike) {
    const auto input = randomPicture<TypeParam>(kPresetSize.width, kPresetSize.height, 12);
    std::vector<Picture<TypeParam>> pictures;
    for (int preset = 0; preset < kPresetCount; ++preset) {
        pictures.push_back(presetPicture(preset, input));
        for (int other = 0; other < preset; ++other) {
            EXPECT_NE(pictures[other], pictures[preset])
                << presetNames()[other] << ", " << presetNames()[preset];
        }
    }
}

TYPED_TEST(PresetFrame, CableOutShowsNothingOfThePicture) {
    const auto one = randomPicture<TypeParam>(kPresetSize.width, kPresetSize.height, 13);
    const auto two = randomPicture<TypeParam>(kPresetSize.width, kPresetSize.height, 14);
    const int cableOut = *findPreset("Cable Out");
    EXPECT_EQ(presetPicture(cableOut, one), presetPicture(cableOut, two));
}

}  // namespace
}  // namespace ruvex::test
