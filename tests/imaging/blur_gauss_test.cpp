#include "imaging/blur/blur_gauss.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex::test {
namespace {

template <class Blur>
void setRadii(Blur& blur, float radiusX, float radiusY) {
    blur.radiusX = radiusX;
    blur.radiusY = radiusY;
}

template <class P>
void flood(Canvas<P>& canvas, int value) {
    using T = typename P::Component;
    for (P& pixel : canvas.memory) {
        for (T& component : pixel.c) component = static_cast<T>(value);
    }
}

// The result of blurring `source` into a second texture of its size.
template <class Blur, class P>
std::vector<P> blurred(Blur& blur, Canvas<P>& source) {
    Canvas<P> map(source.width(), source.height());
    blur.process(&source.texture, &map.texture);
    return map.memory;
}

TEST(BlurGauss, RadiusZeroOnBothAxesCopiesAndRunsNoPass) {
    Random random(1);
    Canvas<Rgba8> source(7, 5), map(7, 5);
    source.scribble(random);
    map.scribble(random);
    map.texture.setEdgeMethods(kEdgeWrap, kEdgeMirror);
    BlurRGBAGauss<Rgba8> blur;
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(blur.passes, 0);
    EXPECT_EQ(blur.temp, nullptr);
    EXPECT_EQ(map.texture.x.edgeMethod, kEdgeWrap);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 7; ++x) EXPECT_EQ(map.at(x, y), source.at(x, y));
    }
}

TEST(BlurGauss, RadiusZeroCopiesWholePixelsWhateverTheMask) {
    Random random(2);
    Canvas<RgbaInt> source(3, 2), map(3, 2);
    source.scribble(random);
    map.scribble(random);
    BlurRGBAGauss<RgbaInt, 4> blur;
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(map.at(2, 1), source.at(2, 1));
}

TEST(BlurGauss, RadiusZeroOnOneAxisReproducesItsInputThere) {
    Random random(3);
    Canvas<RgbaS214> source(9, 6);
    source.scribble(random);
    // Every row is one value, so that a blur along X alone shows nothing.
    for (int y = 0; y < 6; ++y) {
        for (int x = 1; x < 9; ++x) source.at(x, y) = source.at(0, y);
    }
    source.texture.setEdgeMethods(kEdgeHold, kEdgeHold);
    Canvas<RgbaS214> map(9, 6);
    BlurRGBAGauss<RgbaS214> blur;
    setRadii(blur, 3.5f, 0.0f);  // 1 / 8 is exact
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(blur.passes, 3);
    for (int y = 0; y < 6; ++y) EXPECT_EQ(map.at(4, y), source.at(4, y));
}

// The product with the weight 1 is made in 32 bits.
TEST(BlurGauss, RadiusZeroOnOneAxisKeepsEighteenBitsOfAnInteger) {
    Canvas<ChannelInt> source(1, 1), map(1, 1);
    source.texture.setEdgeMethods(kEdgeHold, kEdgeHold);
    BlurIntGauss blur;
    for (const auto& [value, wanted] : {std::pair{131071, 131071}, std::pair{131072, -131072},
                                        std::pair{-131072, -131072}, std::pair{1 << 20, 0}}) {
        source.at(0, 0) = {{value}};
        setRadii(blur, 0.0f, 1e-9f);
        blur.process(&source.texture, &map.texture);
        EXPECT_EQ(map.at(0, 0).c[0], wanted);
    }
}

TEST(BlurGauss, AConstantStaysWithAWholeRadius) {
    Canvas<Rgba8> source(8, 8);
    flood(source, 255);
    source.texture.setEdgeMethods(kEdgeHold, kEdgeHold);
    for (const float radius : {1.0f, 2.0f, 3.0f, 7.0f}) {
        BlurRGBAGauss<Rgba8> blur;
        setRadii(blur, radius, radius);
        const auto result = blurred(blur, source);
        EXPECT_EQ(result[Canvas<Rgba8>(8, 8).indexOf(3, 4)], (Rgba8{{255, 255, 255, 255}}));
    }
}

TEST(BlurGauss, ARadiusBeyondThreeTimesTheLongerSideIsHeld) {
    Random random(4);
    Canvas<Rgba8> source(5, 3);
    source.scribble(random);
    source.texture.setEdgeMethods(kEdgeMirror, kEdgeWrap);
    BlurRGBAGauss<Rgba8> huge, limit;
    setRadii(huge, 1e30f, 16.0f);
    setRadii(limit, 15.0f, 15.0f);
    EXPECT_EQ(firstDifference(blurred(huge, source), blurred(limit, source)), "");
    EXPECT_EQ(huge.radiusX, 15.0f);
    EXPECT_EQ(huge.radiusY, 15.0f);
}

TEST(BlurGauss, ARadiusThatIsNegativeOrNoNumberIsZero) {
    Canvas<Rgba8> source(5, 3);
    BlurRGBAGauss<Rgba8> blur;
    setRadii(blur, -2.0f, std::numeric_limits<float>::quiet_NaN());
    blurred(blur, source);
    EXPECT_EQ(blur.radiusX, 0.0f);
    EXPECT_EQ(blur.radiusY, 0.0f);
    EXPECT_EQ(blur.passes, 0);
}

TEST(BlurGauss, EdgesDarkenWithABlackFillAndStayWithHold) {
    Canvas<Rgba8> source(16, 16);
    flood(source, 200);
    const std::size_t corner = source.indexOf(0, 0), middle = source.indexOf(8, 8);
    BlurRGBAGauss<Rgba8> blur;
    setRadii(blur, 1.0f, 1.0f);
    const auto dark = blurred(blur, source);
    EXPECT_LT(dark[corner].c[0], 100);
    EXPECT_EQ(dark[middle].c[0], 200);
    source.texture.setEdgeMethods(kEdgeHold, kEdgeHold);
    const auto even = blurred(blur, source);
    EXPECT_EQ(even[corner].c[0], 200);
}

TEST(BlurGauss, InPlaceEqualsASecondTexture) {
    Random random(5);
    Canvas<RgbaS214> source(23, 11);
    source.scribble(random);
    source.texture.setEdgeMethods(kEdgeMirror, kEdgeWrap);
    BlurRGBAGauss<RgbaS214> blur, inPlace;
    setRadii(blur, 2.5f, 4.25f);
    setRadii(inPlace, 2.5f, 4.25f);
    Canvas<RgbaS214> map(23, 11);
    map.memory = source.memory;  // the guard pixels alike
    blur.process(&source.texture, &map.texture);
    inPlace.process(&source.texture, &source.texture);
    EXPECT_EQ(firstDifference(source.memory, map.memory), "");
}

TEST(BlurGauss, TwoOrFourIterationsRunTwoBoxes) {
    Canvas<ChannelInt> source(9, 1);
    flood(source, 0);
    source.at(4, 0) = {{9000}};
    const auto rowOf = [&](std::int32_t iterations) {
        BlurIntGauss blur;
        blur.radiusX = 1.0f;
        blur.iterations = iterations;
        const auto memory = blurred(blur, source);
        std::vector<std::int32_t> row;
        for (int x = 0; x < 9; ++x) row.push_back(memory[source.indexOf(x, 0)].c[0]);
        return row;
    };
    const std::vector<std::int32_t> two{0, 0, 1000, 2000, 3000, 2000, 1000, 0, 0};
    EXPECT_EQ(rowOf(2), two);
    EXPECT_EQ(rowOf(4), two);
    EXPECT_EQ(rowOf(3), (std::vector<std::int32_t>{0, 333, 1000, 2000, 2333, 2000, 1000, 333, 0}));
}

TEST(BlurGauss, TheMapGetsItsEdgeMethodsAndFillBack) {
    Random random(6);
    Canvas<Rgba8> source(5, 5), map(5, 5);
    source.texture.setEdgeMethods(kEdgeHold, kEdgeWrap);
    map.texture.setEdgeMethods(kEdgeMirror, kEdgeFill);
    map.texture.setFill({{1, 2, 3, 4}});
    BlurRGBAGauss<Rgba8> blur;
    setRadii(blur, 1.0f, 1.0f);
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(map.texture.x.edgeMethod, kEdgeMirror);
    EXPECT_EQ(map.texture.y.edgeMethod, kEdgeFill);
    EXPECT_EQ(map.texture.fill, (Rgba8{{1, 2, 3, 4}}));
}

TEST(BlurGauss, TheWindowAndTheBufferBetweenAreKept) {
    Canvas<Rgba8> source(20, 10), map(20, 10);
    BlurRGBAGauss<Rgba8> blur;
    blur.setWindow(2, 3, 30, 5);
    setRadii(blur, 4.0f, 1.0f);
    blur.scaleX = 2.0f;
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(blur.radiusX, 2.0f);
    EXPECT_EQ(blur.x0, 2);
    EXPECT_EQ(blur.y0, 3);
    EXPECT_EQ(blur.x1, 20);
    EXPECT_EQ(blur.y1, 6);
    ASSERT_NE(blur.temp, nullptr);
    EXPECT_EQ(blur.temp->x.size, 20);
    EXPECT_EQ(blur.temp->y.size, 10 + 2 * 9);
    EXPECT_EQ(blur.temp->y.offset, -9);
    const VxTexture<Rgba8>* first = blur.temp.get();
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(blur.temp.get(), first);
    EXPECT_EQ(blur.radiusX, 1.0f);  // the aspect is taken off once more
}

// The buffer of a smaller picture serves a larger one as far as it goes.
TEST(BlurGauss, AKeptBufferThatIsTooSmallIsNotWrittenPast) {
    Random random(7);
    Canvas<Rgba8> small(3, 3), large(40, 30), map(40, 30);
    large.scribble(random);
    large.texture.setEdgeMethods(kEdgeWrap, kEdgeMirror);
    BlurRGBAGauss<Rgba8> blur;
    setRadii(blur, 1.0f, 1.0f);
    blur.process(&small.texture, &small.texture);
    blur.setWindow(0, 0, 39, 29);
    setRadii(blur, 6.0f, 6.0f);
    blur.process(&large.texture, &map.texture);
    const auto once = map.memory;
    blur.process(&large.texture, &map.texture);
    EXPECT_EQ(firstDifference(map.memory, once), "");
    EXPECT_EQ(blur.temp->x.size, 3);
}

// A record that nobody interrupts; the render stops for want of memory alone.
template <class Blur>
void expectOutOfMemory(Blur& blur, Canvas<Rgba8>& source) {
    Random random(8);
    Canvas<Rgba8> map(source.width(), source.height());
    map.scribble(random);
    const auto before = map.memory;
    InterruptionRecord record;
    blur.interrupt = &record;
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(record.interrupted.load(), 1);
    EXPECT_EQ(record.progress.load(), kOutOfMemoryCode);
    EXPECT_EQ(firstDifference(map.memory, before), "");
}

TEST(BlurGauss, ABufferOfTwoGigabytesStopsTheRender) {
    Canvas<Rgba8> source(20000, 1);
    BlurRGBAGauss<Rgba8> blur;
    setRadii(blur, 1.0f, 60000.0f);  // 360013 rows of 20000 pixels
    expectOutOfMemory(blur, source);
    EXPECT_EQ(blur.temp, nullptr);
}

TEST(BlurGauss, MoreBoxesThanMemoryStopTheRender) {
    Canvas<Rgba8> source(4, 4);
    BlurRGBAGauss<Rgba8> blur;
    setRadii(blur, 1.0f, 1.0f);
    blur.iterations = std::numeric_limits<std::int32_t>::max();
    expectOutOfMemory(blur, source);
}

TEST(BlurGauss, RowBuffersWithoutALengthStopTheRender) {
    Canvas<Rgba8> source(10, 10);
    BlurRGBAGauss<Rgba8> blur;
    setRadii(blur, 5.0f, 0.0f);
    blur.iterations = -1;
    expectOutOfMemory(blur, source);
    EXPECT_NE(blur.temp, nullptr);
}

TEST(BlurGauss, AnInterruptedRenderWritesNothing) {
    Random random(9);
    Canvas<Rgba8> source(6, 6), map(6, 6);
    source.scribble(random);
    map.scribble(random);
    const auto before = map.memory;
    InterruptionRecord record;
    record.interrupted = 1;
    BlurRGBAGauss<Rgba8> blur;
    blur.interrupt = &record;
    setRadii(blur, 1.0f, 1.0f);
    blur.process(&source.texture, &map.texture);
    EXPECT_EQ(firstDifference(map.memory, before), "");
}

TEST(BlurGeneralGauss, TruncatesEveryBox) {
    Canvas<Rgba8> source(9, 1);
    flood(source, 0);
    for (std::uint8_t& component : source.at(4, 0).c) component = 100;
    BlurGeneralGauss<Rgba8> blur;
    blur.radiusX = 1.0f;
    const auto memory = blurred(blur, source);
    // 33 33 33; then 11 22 33 22 11; then 3 11 22 25 22 11 3.
    const int wanted[] = {0, 3, 11, 22, 25, 22, 11, 3, 0};
    for (int x = 0; x < 9; ++x) EXPECT_EQ(memory[source.indexOf(x, 0)].c[0], wanted[x]) << x;
}

}  // namespace
}  // namespace ruvex::test
