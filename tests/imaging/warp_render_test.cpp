#include "imaging/warp/warp_render.h"

#include <atomic>
#include <gtest/gtest.h>

#include "imaging/warp/lens_warper.h"
#include "tests/imaging/support/canvas.h"

namespace ruvex::test {
namespace {

// A lens that counts the rows that it is asked to move.
struct CountingLens : VxLensWarper {
    CountingLens(float x, float y, float radius) {
        radiusX = radiusY = radius;
        inverseRadiusX = inverseRadiusY = 1.0f / radius;
        centreX = x;
        centreY = y;
        exponent = 2.0f;
    }
    void warpRow(std::int32_t x, std::int32_t y, std::int32_t count, float* sx,
                 float* sy) const override {
        ++rows;
        pixels += count;
        VxLensWarper::warpRow(x, y, count, sx, sy);
    }
    mutable std::atomic<int> rows{0};
    mutable std::atomic<int> pixels{0};
};

template <class P>
class WarpRender : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(WarpRender, FramePixels);

TYPED_TEST(WarpRender, WithTheLensOutsideTheMapRowsAreOnlyCopied) {
    for (const auto& [x, y] : {std::pair{-50.0f, 10.0f}, {90.0f, 10.0f}, {15.0f, -50.0f}}) {
        Random random(1);
        Canvas<TypeParam> source(30, 20), map(30, 20);
        source.scribble(random);
        CountingLens lens(x, y, 12.0f);
        VxWarpRender<TypeParam> render;
        render.warper = &lens;
        VxTexture<TypeParam>* target = &map.texture;
        render.process(target, source.texture);
        EXPECT_EQ(lens.rows, 0);
        for (int row = 0; row < 20; ++row) {
            for (int column = 0; column < 30; ++column) {
                ASSERT_EQ(map.at(column, row), source.at(column, row));
            }
        }
    }
}

TYPED_TEST(WarpRender, OnlyThePixelsOfTheSpanAreMoved) {
    Canvas<TypeParam> source(40, 30), map(40, 30);
    CountingLens lens(20.0f, 15.0f, 5.0f);
    VxWarpRender<TypeParam> render;
    render.warper = &lens;
    VxTexture<TypeParam>* target = &map.texture;
    render.process(target, source.texture);
    EXPECT_EQ(lens.rows, 10);
    // The area of the circle and, in each row, less than two pixels more.
    EXPECT_GE(lens.pixels, 78);
    EXPECT_LE(lens.pixels, 98);
}

TYPED_TEST(WarpRender, WithoutATargetOneIsMadeLikeTheSource) {
    Random random(2);
    Canvas<TypeParam> source(9, 7);
    source.scribble(random);
    source.texture.setEdgeMethods(kEdgeWrap, kEdgeHold);
    source.texture.setRange(1, 6, 2, 5);
    CountingLens lens(4.0f, 4.0f, 1.0f);
    VxWarpRender<TypeParam> render;
    render.warper = &lens;
    VxTexture<TypeParam>* target = nullptr;
    render.process(target, source.texture);
    const std::unique_ptr<VxTexture<TypeParam>> made(target);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->x.size, 9);
    EXPECT_EQ(made->y.size, 7);
    EXPECT_EQ(made->x.edgeMethod, kEdgeWrap);
    EXPECT_EQ(made->y.edgeMethod, kEdgeHold);
    EXPECT_EQ(made->x.lo, 1);
    EXPECT_EQ(made->y.hi, 5);
    EXPECT_EQ(*made->writeAt(2, 3), source.at(2, 3));
    EXPECT_EQ(*made->writeAt(8, 3), source.at(2, 3)) << "read through the source's edges";
}

TYPED_TEST(WarpRender, AMapThatCannotBeWrittenIsNamed) {
    Canvas<TypeParam> source(4, 4);
    CountingLens lens(2.0f, 2.0f, 1.0f);
    VxWarpRender<TypeParam> render;
    render.warper = &lens;
    VxTexture<TypeParam> empty;
    VxTexture<TypeParam>* target = &empty;
    testing::internal::CaptureStderr();
    render.process(target, source.texture);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Map passed into Generator::process is bogus\n");
}

TYPED_TEST(WarpRender, AnInterruptedRenderLeavesTheMapAlone) {
    Random random(3);
    Canvas<TypeParam> source(8, 8), map(8, 8);
    source.scribble(random);
    const auto before = map.memory;
    InterruptionRecord record;
    record.interrupted = 1;
    CountingLens lens(4.0f, 4.0f, 3.0f);
    VxWarpRender<TypeParam> render;
    render.warper = &lens;
    render.interrupt = &record;
    VxTexture<TypeParam>* target = &map.texture;
    render.process(target, source.texture);
    EXPECT_EQ(firstDifference(map.memory, before), "");
}

}  // namespace
}  // namespace ruvex::test
