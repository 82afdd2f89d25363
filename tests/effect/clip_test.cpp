// Which frames of a clip are asked for and shown.

#include <gtest/gtest.h>

#include "tests/effect/support/clip_fixture.h"

namespace ruvex::test {
namespace {

template <class P>
class Clip : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Clip, FramePixels);

template <class P>
std::vector<int> shownFrames(ClipRenderer<P>& clip, int count) {
    std::vector<int> shown;
    for (int k = 0; k < count; ++k) shown.push_back(shownNumber(clip.frame(k)));
    return shown;
}

TYPED_TEST(Clip, AtNormalSpeedNoOtherFrameIsAskedFor) {
    for (const double rate : {24000.0 / 1001, 23.976, 25.0, 29.97, 59.94}) {
        ClipRenderer<TypeParam> clip(200, rate);
        for (int k = 0; k < 60; ++k) EXPECT_EQ(shownNumber(clip.frame(k)), k);
        EXPECT_EQ(clip.clip->takeAsked(), std::vector<int>()) << rate;
    }
}

TYPED_TEST(Clip, SlowsDownStopsAndWindsBack) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.animate(ParameterId::PlaySpeed,
                          {{0.0, 100.0}, {0.4, 0.0}, {0.8, 0.0}, {1.2, -200.0}});
    // The tape has gone the sum of the speeds of all frames before, in hundredths.
    std::vector<int> wanted;
    int hundredths = 0;
    for (int k = 0; k < 36; ++k) {
        const int frame = static_cast<int>(std::floor(hundredths / 100.0));
        wanted.push_back(frame < 0 ? -1 : frame);
        hundredths += k <= 10 ? 100 - 10 * k : k <= 20 ? 0 : std::max(-20 * (k - 20), -200);
    }
    EXPECT_EQ(wanted[10], 5);
    EXPECT_EQ(wanted[25], 3);
    EXPECT_EQ(wanted[35], -1) << "before the clip there is nothing";
    EXPECT_EQ(shownFrames(clip, 36), wanted);
}

TYPED_TEST(Clip, AtHalfSpeedEachFrameIsShownTwice) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.set(ParameterId::PlaySpeed, 50);
    EXPECT_EQ(shownFrames(clip, 8), (std::vector<int>{0, 0, 1, 1, 2, 2, 3, 3}));
    EXPECT_EQ(clip.clip->takeAsked(), (std::vector<int>{0, 1, 1, 2, 2, 3, 3}))
        << "frame 0 is the output's own";
}

TYPED_TEST(Clip, AStoppedTapeShowsItsFirstFrame) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.set(ParameterId::PlaySpeed, 0);
    EXPECT_EQ(shownFrames(clip, 5), (std::vector<int>{0, 0, 0, 0, 0}));
}

TYPED_TEST(Clip, RepeatedFramesGoByThrees) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.set(ParameterId::RepeatFrames, 3);
    EXPECT_EQ(shownFrames(clip, 7), (std::vector<int>{0, 0, 0, 3, 3, 3, 6}));
    EXPECT_EQ(clip.clip->takeAsked(), (std::vector<int>{0, 0, 3, 3}));
}

TYPED_TEST(Clip, ARefusedFrameIsBlankAndTheJobGoesOn) {
    ClipRenderer<TypeParam> clip(10);
    clip.renderer.set(ParameterId::PlaySpeed, 400);
    EXPECT_EQ(shownFrames(clip, 5), (std::vector<int>{0, 4, 8, -1, -1}));
    const Picture<TypeParam> refused = clip.frame(3);
    for (const TypeParam& pixel : refused.pixels) EXPECT_EQ(pixel, TypeParam{});
    clip.renderer.set(ParameterId::PlaySpeed, 100);
    EXPECT_EQ(shownNumber(clip.frame(5)), 5);
}

TYPED_TEST(Clip, ARefusedFrameKeepsToTheRegion) {
    ClipRenderer<TypeParam> clip(10);
    clip.renderer.set(ParameterId::PlaySpeed, 800);
    const auto before = numberedPicture<TypeParam>(8, 6, 99);
    auto output = imageOf(clip.project, before);
    runtime::RenderRequest request;
    request.seconds = 0.2;
    request.input = imageOf(clip.project, numberedPicture<TypeParam>(8, 6, 5));
    request.output = output;
    request.region = DSRECT{2, 1, 3, 2};
    clip.renderer.session().render(request);
    const auto picture = pictureOf<TypeParam>(*output);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool blank = x >= 2 && x < 5 && y >= 1 && y < 3;
            EXPECT_EQ(picture.at(x, y), blank ? TypeParam{} : before.at(x, y));
        }
    }
}

TYPED_TEST(Clip, ARefusedFrameStillGoesThroughTheChannelMask) {
    ClipRenderer<TypeParam> clip(10);
    clip.renderer.set(ParameterId::PlaySpeed, 800);
    clip.renderer.set(ParameterId::MaskGreen, 0);
    const auto picture = clip.frame(7);
    for (const TypeParam& pixel : picture.pixels) EXPECT_EQ(pixel, (TypeParam{{0, 8, 0, 0}}));
}

TYPED_TEST(Clip, WithoutAHostThatServesFramesAnotherFrameIsBlank) {
    const runtime::Project project{.width = 8, .height = 6};
    Renderer renderer(project);
    renderer.set(ParameterId::PlaySpeed, 0);
    const auto picture = renderer.render(numberedPicture<TypeParam>(8, 6, 9), 1.0);
    EXPECT_EQ(shownNumber(picture), -1);
}

TYPED_TEST(Clip, TheFinishingStepsSeeTheCurrentInputAndNotTheFetchedOne) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.set(ParameterId::PlaySpeed, 0);
    clip.renderer.set(ParameterId::MaskRed, 0);
    clip.renderer.set(ParameterId::MaskAlpha, 0);
    const auto picture = clip.frame(40);
    EXPECT_EQ(picture.at(3, 3), (TypeParam{{41, 1, 1, 41}}));
}

TYPED_TEST(Clip, AFetchedFrameIsCroppedLikeTheInput) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.set(ParameterId::PlaySpeed, 0);
    clip.renderer.set(ParameterId::CropRight, 50);
    clip.renderer.set(ParameterId::XEdgeMethod, 0);
    const auto picture = clip.frame(40);
    EXPECT_EQ(picture.at(1, 1).c[0], 1);
    EXPECT_EQ(picture.at(6, 1), TypeParam{});
}

TYPED_TEST(Clip, DisplayCroppedLooksAtNoOtherFrame) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.set(ParameterId::PlaySpeed, -300);
    clip.renderer.set(ParameterId::RepeatFrames, 7);
    clip.renderer.set(ParameterId::DisplayCropped, 1);
    EXPECT_EQ(shownNumber(clip.frame(40)), 40);
    EXPECT_EQ(clip.clip->takeAsked(), std::vector<int>());
}

// The tape stands, and each picture is whatever it would be when asked for alone.
TYPED_TEST(Clip, FramesAreTheSameInAnyOrder) {
    ClipRenderer<TypeParam> clip;
    clip.renderer.set(ParameterId::MasterBreakup, 60);
    clip.renderer.set(ParameterId::BreakupVariation, 100);
    clip.renderer.animate(ParameterId::PlaySpeed, {{0.0, 150.0}, {1.0, -50.0}});
    std::vector<Picture<TypeParam>> forwards;
    for (int k = 0; k < 12; ++k) forwards.push_back(clip.frame(k));
    for (int k = 11; k >= 0; --k) {
        EXPECT_EQ(clip.frame(k), forwards[static_cast<std::size_t>(k)]) << k;
    }
}

}  // namespace
}  // namespace ruvex::test
