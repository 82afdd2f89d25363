// A new effect, before its host has told it anything.

#include <gtest/gtest.h>
#include <type_traits>

#include "sdk/effect/content.h"
#include "tests/module/made_effect.h"

namespace ruvex::test {
namespace {

// A host finds the operations of an effect's base by their places, the first of them in slot 0,
// which a virtual destructor would take.
static_assert(std::is_polymorphic_v<VxDsEffect> && !std::has_virtual_destructor_v<VxDsEffect>);

const DSContent kWideProject = {{kDSProjectUserSizeX, 720.0},
                                {kDSProjectUserSizeY, 576.0},
                                {kDSProjectWorldSizeX, 720.0},
                                {kDSProjectWorldSizeY, 288.0}};

void expectSize(DSFloatPair size) {
    const auto effect = makeEffect();
    const PictureGeometry expected{.size = size};
    const FrameGeometry all{expected, expected, expected};
    EXPECT_EQ(stateOf(effect).geometry, all);
    EXPECT_EQ(stateOf(effect).link->geometry(), all) << "and the user sees it";
}

TEST(NewEffect, HasItsReleasedState) {
    const auto effect = makeEffect();
    const VxDsEffect& state = stateOf(effect);
    EXPECT_EQ(&stateOf(effect, kRuvexClassId), &state) << "both identifiers give it";
    EXPECT_EQ(state.effectKind, EffectKind::Unknown);
    EXPECT_EQ(state.fieldSelector, 0);
    EXPECT_EQ(state.fieldHandling, FieldHandling::None);
    EXPECT_EQ(state.fieldScaleY, 1.0f);
    EXPECT_EQ(state.cropMode, CropMode::WindowEdges);
    EXPECT_EQ(state.capabilityFlags, 95u);
    EXPECT_EQ(state.infoFlags, 0u);
    EXPECT_FALSE(state.sourceEffect);
}

TEST(NewEffect, ShowsThePlaceOfTheProjectsFrame) {
    const DSContentScope scope(kWideProject);
    expectSize({1440.0f, 576.0f});
}

TEST(NewEffect, TakesSquarePixelsWhereTheProjectDoesNotSay) {
    DSContent content = kWideProject;
    content.erase(kDSProjectWorldSizeY);
    const DSContentScope scope(content);
    expectSize({720.0f, 576.0f});
}

TEST(NewEffect, ShowsNothingWithoutAProject) {
    expectSize({0.0f, 0.0f});
}

}  // namespace
}  // namespace ruvex::test
