#include <gtest/gtest.h>

#include "imaging/blur/blur_gauss.h"
#include "imaging/blur/channel_blur_sampler.h"
#include "imaging/mix_combiner.h"
#include "imaging/subtract_combiner.h"
#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex::test {
namespace {

template <class P>
P mixOf(const P& first, const P& second, float weightFirst, float weightSecond) {
    Canvas<P> a(1, 1), b(1, 1), map(1, 1);
    a.at(0, 0) = first;
    b.at(0, 0) = second;
    MixCombiner<P> mix;
    mix.weightFirst = weightFirst;
    mix.weightSecond = weightSecond;
    mix.process(&a.texture, &b.texture, &map.texture);
    return map.at(0, 0);
}

TEST(MixCombiner, WeightsOneAndZeroCopyTheFirstAlphaToo) {
    EXPECT_EQ(mixOf<Rgba8>({{10, 20, 30, 40}}, {{255, 255, 255, 255}}, 1.0f, 0.0f),
              (Rgba8{{10, 20, 30, 40}}));
    EXPECT_EQ(mixOf<RgbaS214>({{-5, 32767, -32768, 7}}, {{9, 9, 9, 9}}, 1.0f, 0.0f),
              (RgbaS214{{-5, 32767, -32768, 7}}));
}

TEST(MixCombiner, AlphaMixesAsTheColourDoes) {
    EXPECT_EQ(mixOf<Rgba8>({{10, 20, 30, 40}}, {{20, 40, 60, 81}}, 0.5f, 0.5f),
              (Rgba8{{15, 30, 45, 60}}));
}

TEST(MixCombiner, ASumOfWeightsAboveOneIsHeldToTheTop) {
    EXPECT_EQ(mixOf<Rgba8>({{200, 1, 0, 255}}, {{100, 1, 0, 255}}, 1.0f, 1.0f),
              (Rgba8{{255, 2, 0, 255}}));
    EXPECT_EQ(mixOf<RgbaS214>({{20000, -5, 1, 0}}, {{20000, -5, 1, 0}}, 1.0f, 1.0f),
              (RgbaS214{{32767, 0, 2, 0}}));
}

TEST(MixCombiner, ANegativeWeightIsHeldToZero) {
    EXPECT_EQ(mixOf<Rgba8>({{100, 50, 0, 255}}, {{200, 20, 0, 0}}, 1.0f, -0.75f),
              (Rgba8{{0, 35, 0, 255}}));
    EXPECT_EQ(mixOf<RgbaS214>({{-100, 100, 0, 0}}, {{0, 0, 0, 0}}, -0.5f, 1.0f),
              (RgbaS214{{50, 0, 0, 0}}));
}

// Without a clamp what S2.14 holds below black stays.
TEST(MixCombiner, BelowBlackStaysWhereNoClampIsNeeded) {
    EXPECT_EQ(mixOf<RgbaS214>({{-101, 101, 0, 0}}, {{0, 0, 0, 0}}, 0.5f, 0.5f),
              (RgbaS214{{-50, 50, 0, 0}}));
}

TEST(MixCombiner, WeightsThatAreNoNumberGiveBlack) {
    const float none = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(mixOf<Rgba8>({{1, 2, 3, 4}}, {{5, 6, 7, 8}}, none, 0.5f), Rgba8{});
}

TEST(SubtractCombiner, TurnsTheSecondOverAboutTheFirst) {
    Canvas<RgbaInt> a(1, 1), b(1, 1), map(1, 1);
    a.at(0, 0) = {{10, -10, 0, 16777217}};  // the last is no float
    b.at(0, 0) = {{3, 4, -5, 1}};
    a.texture.setFill({{1, 2, 3, 4}});
    b.texture.setFill({{0, 1, 7, 9}});
    SubtractCombiner subtract;
    subtract.process(&a.texture, &b.texture, &map.texture);
    EXPECT_EQ(map.at(0, 0), (RgbaInt{{17, -24, 5, 33554431}}));
    EXPECT_EQ(map.texture.fill, (RgbaInt{{2, 3, -1, -1}}));
}

TEST(SubtractCombiner, SetsTheFillOnceHoweverManyWorkers) {
    const Workers workers(4);
    Canvas<RgbaInt> a(2, 9), b(2, 9);
    a.texture.setFill({{10, 10, 10, 10}});
    b.texture.setFill({{1, 2, 3, 4}});
    SubtractCombiner subtract;
    subtract.process(&a.texture, &b.texture, &b.texture);
    EXPECT_EQ(b.texture.fill, (RgbaInt{{19, 18, 17, 16}}));
}

TEST(SubtractCombiner, WrapsWhereThirtyTwoBitsEnd) {
    Canvas<RgbaInt> a(1, 1), b(1, 1), map(1, 1);
    a.at(0, 0) = {{1 << 30, -(1 << 30), INT32_MAX, INT32_MIN}};
    b.at(0, 0) = {{0, 1, 1, 0}};
    SubtractCombiner subtract;
    subtract.process(&a.texture, &b.texture, &map.texture);
    EXPECT_EQ(map.at(0, 0), (RgbaInt{{INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}}));
}

// Values that a float holds whole.
void scribbleSmall(Canvas<RgbaInt>& canvas, Random& random) {
    for (RgbaInt& pixel : canvas.memory) {
        for (std::int32_t& component : pixel.c) component = random.whole(-60000, 60000);
    }
}

TEST(ChannelBlurSampler, IsBuiltWithSizesOfThreeAndACountOfOne) {
    const ChannelBlurSampler blur;
    EXPECT_EQ(blur.count, 1);
    EXPECT_EQ(blur.reserved, 0);
    for (const auto& size : blur.sizes) {
        EXPECT_EQ(size.x, 3.0f);
        EXPECT_EQ(size.y, 3.0f);
    }
}

TEST(ChannelBlurSampler, AllSizesZeroGiveACopyOfTheSource) {
    Random random(10);
    Canvas<RgbaInt> source(7, 6), map(7, 6);
    scribbleSmall(source, random);
    scribbleSmall(map, random);
    ChannelBlurSampler blur;
    for (auto& size : blur.sizes) size = {0.0f, 0.0f};
    blur.process(&source.texture, &map.texture);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 7; ++x) EXPECT_EQ(map.at(x, y), source.at(x, y));
    }
}

TEST(ChannelBlurSampler, EachChannelHasItsOwnSize) {
    Random random(11);
    Canvas<RgbaInt> source(12, 9), map(12, 9), all(12, 9);
    scribbleSmall(source, random);
    source.texture.setEdgeMethods(kEdgeHold, kEdgeMirror);
    ChannelBlurSampler blur;
    blur.count = 0;
    blur.scaleX = 0.5f;
    blur.setWindow(1, 2, 10, 7);
    blur.sizes[0] = {6.0f, 0.0f};
    blur.sizes[1] = {0.0f, 4.5f};
    blur.sizes[2] = {0.0f, -1.0f};
    blur.sizes[3] = {3.0f, 9.0f};
    blur.process(&source.texture, &map.texture);
    for (int k = 0; k < 4; ++k) {
        BlurRGBAGauss<RgbaInt> one;
        one.scaleX = 0.5f;
        one.radiusX = blur.sizes[k].x / 3.0f;
        one.radiusY = blur.sizes[k].y / 3.0f;
        one.process(&source.texture, &all.texture);
        for (int y = 2; y <= 7; ++y) {
            for (int x = 1; x <= 10; ++x) EXPECT_EQ(map.at(x, y).c[k], all.at(x, y).c[k]);
        }
    }
    EXPECT_EQ(map.at(0, 5), RgbaInt{});
    EXPECT_EQ(map.at(5, 8), RgbaInt{});
}

TEST(ChannelBlurSampler, TurnsTheBlurOverAboutTheSource) {
    Random random(12);
    Canvas<RgbaInt> source(8, 8), plain(8, 8), turned(8, 8);
    scribbleSmall(source, random);
    ChannelBlurSampler blur;
    blur.count = 0;
    blur.process(&source.texture, &plain.texture);
    blur.count = 1;
    blur.process(&source.texture, &turned.texture);
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(turned.at(3, 4).c[k], 2 * source.at(3, 4).c[k] - plain.at(3, 4).c[k]);
    }
}

TEST(ChannelBlurSampler, AnAspectNearZeroIsHeld) {
    Random random(13);
    Canvas<RgbaInt> source(5, 5), map(5, 5);
    scribbleSmall(source, random);
    ChannelBlurSampler blur;
    blur.scaleX = 0.0f;
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(blur.scaleX, 0.0f);
}

}  // namespace
}  // namespace ruvex::test
