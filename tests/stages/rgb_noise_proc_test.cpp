#include "stages/rgb_noise_proc.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class Snow : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Snow, FramePixels);

TYPED_TEST(Snow, FullSparsenessDoesNotEvenWriteTheTarget) {
    for (const float sparseness : {1.0f, 7.0f}) {
        Random random(3);
        Canvas<TypeParam> source(9, 7);
        Canvas<TypeParam> target(9, 7);
        source.scribble(random);
        target.scribble(random);
        const auto before = target.memory;
        VxRGBNoiseProc<TypeParam> noise;
        noise.sparseness = sparseness;
        noise.softX[0] = 3.0f;
        noise.process(source.texture, target.texture);
        EXPECT_EQ(firstDifference(target.memory, before), "");
        EXPECT_EQ(noise.colourNoise.data, nullptr) << "and takes no memory";
    }
}

TYPED_TEST(Snow, WithoutSparsenessNoGrainIsSilent) {
    Canvas<TypeParam> grey(64, 64);
    const auto middle = static_cast<typename TypeParam::Component>(kWhiteOf<TypeParam> / 2);
    const auto countTouched = [&](float sparseness) {
        for (auto& pixel : grey.memory) pixel = {{middle, middle, middle, middle}};
        VxRGBNoiseProc<TypeParam> noise;
        noise.mode = VxRGBNoiseProc<TypeParam>::Mode::Grey;
        noise.sparseness = sparseness;
        for (int k = 0; k < 4; ++k) {
            noise.amountMin[k] = -0.4f;
            noise.amountMax[k] = 0.4f;
        }
        noise.process(grey.texture, grey.texture);
        int touched = 0;
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) touched += grey.at(x, y).c[0] != middle;
        }
        return touched / 4096.0;
    };
    EXPECT_GT(countTouched(0.0f), 0.98);
    EXPECT_NEAR(countTouched(0.5f), 0.5, 0.05);
    EXPECT_NEAR(countTouched(0.9f), 0.1, 0.03);
}

TYPED_TEST(Snow, SnowOfNoStrengthIsNotRun) {
    Television<TypeParam> set(20, 20);
    set.signal.breakup = 1.0f;
    set.signal.snowThreshold = 0.0f;
    set.signal.snowMax = 0.0f;
    set.signal.snowSparseness = 0.5f;
    EXPECT_TRUE(set.run().unchanged());
}

TYPED_TEST(Snow, SnowWithoutAnyReachIsSilent) {
    Television<TypeParam> set(20, 20);
    set.signal.breakup = 1.0f;
    set.signal.snowThreshold = 0.0f;
    set.signal.snowMax = 1e-44f;  // times a level of 1 it is a number, times white it may be none
    set.signal.snowSparseness = 0.5f;
    set.source.number();
    EXPECT_TRUE(set.run().unchanged());
}

TYPED_TEST(Snow, NoTwoNeighbouringRowsRepeat) {
    Canvas<TypeParam> canvas(200, 60);
    const auto middle = static_cast<typename TypeParam::Component>(kWhiteOf<TypeParam> / 2);
    for (auto& pixel : canvas.memory) pixel = {{middle, middle, middle, middle}};
    VxRGBNoiseProc<TypeParam> noise;
    for (int k = 0; k < 4; ++k) {
        noise.amountMin[k] = -0.4f;
        noise.amountMax[k] = 0.4f;
    }
    noise.process(canvas.texture, canvas.texture);
    for (int y = 0; y + 1 < 60; ++y) {
        for (int shift = -20; shift <= 20; ++shift) {
            int same = 0;
            for (int x = 20; x < 180; ++x) same += canvas.at(x, y) == canvas.at(x + shift, y + 1);
            EXPECT_LT(same, 16) << y << ", " << shift;
        }
    }
}

TYPED_TEST(Snow, AHeldFrameHoldsItsSnow) {
    const auto pictureAt = [](int sourceFrame, int outputFrame) {
        Television<TypeParam> set(20, 20);
        set.signal.breakup = 1.0f;
        set.signal.snowThreshold = 0.0f;
        set.signal.snowMax = 0.5f;
        set.signal.sourceFrame = sourceFrame;
        set.signal.outputFrame = outputFrame;
        set.run();
        return set.target.memory;
    };
    EXPECT_EQ(pictureAt(4, 4), pictureAt(4, 9));
    EXPECT_NE(pictureAt(4, 4), pictureAt(5, 4));
}

TYPED_TEST(Snow, ATintedTelevisionHasColouredSnowAndABlackAndWhiteOneGrey) {
    for (const int type : {0, 1, 2}) {
        Television<TypeParam> set(30, 30);
        for (auto& pixel : set.source.memory) pixel = {{100, 100, 100, 100}};
        set.signal.tvType = TvType{type};
        set.signal.tint[0] = set.signal.tint[1] = set.signal.tint[2] = kWhiteOf<TypeParam> / 2.0f;
        set.signal.breakup = 1.0f;
        set.signal.snowThreshold = 0.0f;
        set.signal.snowMax = 1.0f;
        set.run();
        int grey = 0;
        for (int y = 0; y < 30; ++y) {
            for (int x = 0; x < 30; ++x) {
                const TypeParam& p = set.shown(x, y);
                grey += p.c[0] == p.c[1] && p.c[1] == p.c[2];
            }
        }
        EXPECT_EQ(grey == 900, type == 1) << type;
        EXPECT_TRUE(grey == 900 || grey < 450) << type;
    }
}

}  // namespace
}  // namespace ruvex::test
