#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/openfx/look_keys.h"

namespace ruvex::openfx {
namespace {

using looks::Animation;
using looks::KeyMode;
using looks::Setting;

constexpr EffectClock kLookClock{.firstFrame = 100, .rate = 25.0};

TEST(OpenFxLookKeys, AreAtTimesOfTheHost) {
    const Animation animation{ParameterId::Blur, {{0.0, 1.0}, {0.96, 2.0}}};
    EXPECT_THAT(hostKeys(animation, kLookClock),
                testing::ElementsAre(FrameKey{100, 1}, FrameKey{124, 2}));
}

TEST(OpenFxLookKeys, HeldValuesHaveASecondKey) {
    const Animation animation{ParameterId::Blur,
                              {{0.0, 1.0, KeyMode::Hold}, {0.4, 2.0, KeyMode::Hold}}};
    EXPECT_THAT(hostKeys(animation, kLookClock),
                testing::ElementsAre(FrameKey{100, 1}, FrameKey{109, 1}, FrameKey{110, 2}));
    const Animation neighbours{ParameterId::Blur, {{0.0, 1.0, KeyMode::Hold}, {0.04, 2.0}}};
    EXPECT_EQ(hostKeys(neighbours, kLookClock).size(), 2u);
}

TEST(OpenFxLookKeys, ColoursHaveKeysForAllChannels) {
    const std::vector<looks::ParameterChange> channels = {
        Animation{ParameterId::TintColourR, {{0.0, 0.0}, {0.4, 100.0}}},
        Setting{ParameterId::TintColourG, 50.0},
        Animation{ParameterId::TintColourB, {{0.2, 20.0}, {0.4, 30.0}}}};
    const auto keys = hostColours(channels, kLookClock);
    ASSERT_EQ(keys.size(), 3u);
    EXPECT_EQ(keys[1].frame, 105.0);
    EXPECT_DOUBLE_EQ(keys[1].colour[0], 0.5);
    EXPECT_DOUBLE_EQ(keys[1].colour[1], 0.5);
    EXPECT_DOUBLE_EQ(keys[1].colour[2], 0.2);
}

TEST(OpenFxLookKeys, AConstantColourHasOneKey) {
    const std::vector<looks::ParameterChange> channels = {Setting{ParameterId::TintColourR, 10.0},
                                                          Setting{ParameterId::TintColourG, 50.0},
                                                          Setting{ParameterId::TintColourB, 100.0}};
    const auto keys = hostColours(channels, kLookClock);
    ASSERT_EQ(keys.size(), 1u);
    EXPECT_EQ(keys[0].colour, (HostColour{0.1, 0.5, 1.0}));
}

}  // namespace
}  // namespace ruvex::openfx
