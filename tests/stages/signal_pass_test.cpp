// The signal and its ghosts.

#include <cmath>
#include <gtest/gtest.h>

#include "stages/signal_rows.h"
#include "stages/tone_tables.h"
#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class SignalPass : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(SignalPass, FramePixels);

TYPED_TEST(SignalPass, NeutralParametersGiveBackTheSource) {
    const std::pair<int, int> sizes[] = {{1, 1}, {1, 9}, {9, 1}, {7, 3}, {33, 21}, {128, 64}};
    for (const auto& [width, height] : sizes) {
        Television<TypeParam> set(width, height);
        EXPECT_TRUE(set.run().unchanged()) << width << "x" << height;
    }
}

TYPED_TEST(SignalPass, EveryValueThatAStageKeepsSurvivesNeutralTables) {
    ToneTables<TypeParam> tables;
    ASSERT_TRUE(tables.build(perfectSignal(1, 1)));
    for (int i = 0; i < ToneTables<TypeParam>::kEntries; ++i) {
        ASSERT_EQ(tables.lutRed[i], i);
        ASSERT_EQ(tables.lutGreen[i], i);
        ASSERT_EQ(tables.lutBlue[i], i);
    }
}

TYPED_TEST(SignalPass, AFullShashShowsNothingOfThePicture) {
    for (int type = 0; type < 5; ++type) {
        Television<TypeParam> one(40, 30, 1);
        Television<TypeParam> two(40, 30, 2);
        for (auto* set : {&one, &two}) {
            set->signal.breakup = 1.0f;
            set->signal.shashThreshold = 0.0f;
            set->signal.shashAmountMax = 1.0f;
            set->signal.shashType = ShashType{type};
            set->run();
        }
        EXPECT_TRUE((Television<TypeParam>::samePicture(one.target, two.target))) << type;
    }
}

TYPED_TEST(SignalPass, AThresholdOfOneIsNeverReached) {
    Television<TypeParam> set(20, 16);
    set.signal.breakup = 1.0f;
    set.signal.colourDegradeMax = 1.0f;
    set.signal.numGhosts = 3;
    set.signal.ghostDistance = 5.0f;
    set.signal.ghostStrength = 1.0f;
    set.signal.edgeDistortionMax = 10.0f;
    set.signal.snowMax = 1.0f;
    set.signal.shashAmountMax = 1.0f;
    EXPECT_TRUE(set.run().unchanged());
}

TYPED_TEST(SignalPass, WithoutGhostsTheSignalIsPassedOn) {
    Television<TypeParam> set(20, 16);
    set.signal.breakup = 1.0f;
    set.signal.ghostThreshold = 0.0f;
    set.signal.ghostDistance = 500.0f;
    set.signal.ghostStrength = 1.0f;
    EXPECT_TRUE(set.run().unchanged());
    set.signal.numGhosts = 2;
    EXPECT_FALSE(set.run().unchanged());
}

TYPED_TEST(SignalPass, AlphaMovesWithThePictureAndIsNotBrightened) {
    for (const int type : {0, 1, 2}) {
        Television<TypeParam> set(20, 30);
        set.signal.tvType = TvType{type};
        set.signal.brightness = 0.5f;
        set.signal.contrast = 0.2f;
        set.signal.emInterference = 0.9f;
        set.signal.verticalOffset = 4;
        set.run();
        bool brightened = false;
        for (int y = 4; y < 30; ++y) {
            for (int x = 0; x < 20; ++x) {
                ASSERT_EQ(set.shown(x, y).c[3], set.sent(x, y - 4).c[3]) << type;
                brightened |= set.shown(x, y).c[0] != set.sent(x, y - 4).c[0];
            }
        }
        EXPECT_TRUE(brightened);
    }
}

TYPED_TEST(SignalPass, AVerticalOffsetBeyondThePaddedPictureWraps) {
    // 40 rows, 4 more above and below.
    for (const int offset : {7, -9}) {
        Television<TypeParam> near(12, 40);
        near.signal.verticalOffset = offset;
        near.run();
        for (const int turns : {1, 5, -3}) {
            Television<TypeParam> far(12, 40);
            far.signal.verticalOffset = offset + turns * 48;
            far.run();
            EXPECT_TRUE((Television<TypeParam>::samePicture(near.target, far.target)))
                << offset << ", " << turns;
        }
    }
}

TYPED_TEST(SignalPass, ARowIsReadFromAnywhereThatAnIntegerReaches) {
    // The widest shift that a float tells from the next, and one that no integer holds.
    for (const float reach : {2.0e9f, 1.0e30f, -1.0e30f}) {
        Television<TypeParam> set(15, 40);
        set.signal.breakup = 1.0f;
        set.signal.edgeThreshold = 0.0f;
        set.signal.edgeDistortionMax = reach;
        for (auto& pixel : set.source.memory) pixel = {{50, 60, 70, 80}};
        set.run();
        int pictures = 0;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 15; ++x) pictures += set.shown(x, y) == TypeParam{{50, 60, 70, 80}};
        }
        // Margins of two columns on each side come along with the picture's fifteen.
        EXPECT_GT(pictures, 15 * 40 / 2) << reach;
    }
}

TYPED_TEST(SignalPass, OverbrightAndDarkSignalsAreHeldToTheRange) {
    Television<TypeParam> set(8, 8);
    for (auto& pixel : set.source.memory) pixel = {{100, 100, 100, 100}};
    set.signal.brightness = 1.0f;
    set.run();
    EXPECT_EQ(set.shown(3, 3).c[0], kWhiteOf<TypeParam>);
    set.signal.brightness = 1000.0f;
    set.run();
    EXPECT_EQ(set.shown(3, 3).c[0], sizeof(TypeParam) == 4 ? 255 : 32767);
    set.signal.brightness = -1000.0f;
    set.run();
    EXPECT_EQ(set.shown(3, 3).c[0], 0);
}

TYPED_TEST(SignalPass, ATintGoesFromBlackByTheColourToWhite) {
    SignalParameters signal = perfectSignal(1, 1);
    signal.tvType = TvType::Tint;
    const float white = kWhiteOf<TypeParam>;
    signal.tint[0] = 0.25f * white;
    signal.tint[1] = 0.5f * white;
    signal.tint[2] = 0.75f * white;
    ToneTables<TypeParam> tables;
    ASSERT_TRUE(tables.build(signal));
    EXPECT_EQ(tables.tintTable[0], TypeParam{});
    const TypeParam& last = tables.tintTable[kWhiteOf<TypeParam>];
    for (int k = 0; k < 3; ++k) EXPECT_EQ(last.c[k], kWhiteOf<TypeParam>);
    const TypeParam& middle = tables.tintTable[(kWhiteOf<TypeParam> + 1) / 2];
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(middle.c[k], signal.tint[k], white / 200);
}

TEST(ColourLoss, TwoFloatsBesideAFifthAreOnEitherSideOfTheSwap) {
    const float above = 0.2f;  // the nearest float lies above a fifth
    const float below = std::nextafter(above, 0.0f);
    EXPECT_EQ(colourLoss(above).stage, ColourLoss::Stage::Drain);
    EXPECT_EQ(colourLoss(above).weight, 0.0f);
    EXPECT_EQ(colourLoss(below).stage, ColourLoss::Stage::Swap);
    EXPECT_EQ(colourLoss(below).weight, below / 0.2f);
}

TEST(ColourLoss, TwoFloatsBesideTwoFifthsAreOnEitherSideOfGrey) {
    const float above = 0.4f;
    const float below = std::nextafter(above, 0.0f);
    EXPECT_EQ(colourLoss(above).stage, ColourLoss::Stage::Grey);
    EXPECT_EQ(colourLoss(below).stage, ColourLoss::Stage::Drain);
    EXPECT_NEAR(colourLoss(below).weight, 1.0f, 1e-6f);
}

TEST(ColourLoss, NothingIsLostAtZeroAndBelow) {
    EXPECT_EQ(colourLoss(0.0f).stage, ColourLoss::Stage::None);
    EXPECT_EQ(colourLoss(-1.0f).stage, ColourLoss::Stage::None);
    EXPECT_EQ(colourLoss(1e-30f).stage, ColourLoss::Stage::Swap);
}

TEST(ContrastCurve, ZeroIsTheIdentity) {
    for (int i = 0; i <= 65536; ++i) {
        const float x = static_cast<float>(i) / 32768.0f;
        ASSERT_EQ(contrastCurve(x, 0.0f), x);
    }
}

TEST(ContrastCurve, AHalfAndAboveIsAStep) {
    for (const float contrast : {0.5f, 0.75f, 1.0f, 1e30f}) {
        EXPECT_EQ(contrastCurve(0.0f, contrast), 0.0f);
        EXPECT_EQ(contrastCurve(0.499f, contrast), 0.0f);
        EXPECT_EQ(contrastCurve(0.5f, contrast), 0.5f);
        EXPECT_EQ(contrastCurve(0.501f, contrast), 1.0f);
        EXPECT_EQ(contrastCurve(1.0f, contrast), 1.0f);
        EXPECT_EQ(contrastCurve(1.7f, contrast), 1.7f) << "overbright stays overbright";
    }
}

TEST(ContrastCurve, IsNeverBelowZeroAndSymmetricAboutAHalf) {
    for (const float contrast : {-0.4f, -0.2f, 0.1f, 0.3f}) {
        for (int i = 1; i < 512; ++i) {
            const float x = static_cast<float>(i) / 1024.0f;
            EXPECT_NEAR(contrastCurve(x, contrast) + contrastCurve(1.0f - x, contrast), 1.0f,
                        1e-6f);
            EXPECT_GE(contrastCurve(x, contrast), 0.0f);
        }
    }
}

}  // namespace
}  // namespace ruvex::test
