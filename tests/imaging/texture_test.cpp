#include "imaging/texture.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "tests/imaging/support/canvas.h"

namespace ruvex {
namespace {

using test::Canvas;
using test::placePixel;

RgbaFloat sampleAt(const VxTexture<Rgba8>& texture, float x, float y) {
    RgbaFloat result{};
    texture.sample(result, x, y);
    return result;
}

TEST(Texture, ANewTextureIsEmpty) {
    const VxTexture<RgbaS214> texture;
    EXPECT_EQ(texture.data, nullptr);
    EXPECT_EQ(texture.owned, 0);
    EXPECT_EQ(texture.allocationFailed, 0);
    EXPECT_EQ(texture.stride, 0);
    EXPECT_EQ(texture.fill, RgbaS214{});
    EXPECT_EQ(texture.x.size, 0);
    EXPECT_EQ(texture.y.hi, -1);
    EXPECT_FALSE(texture.usable());
}

TEST(TextureAllocate, OwnsABufferOfContiguousRows) {
    VxTexture<RgbaS214> texture;
    texture.x.setSize(5);
    texture.y.setSize(3);
    texture.allocate(Contents::Zero);
    ASSERT_NE(texture.data, nullptr);
    EXPECT_EQ(texture.owned, 1);
    EXPECT_EQ(texture.allocationFailed, 0);
    EXPECT_EQ(texture.stride, 40);
    EXPECT_EQ(texture.bufferRow(2)[4], RgbaS214{});
    texture.allocate();  // releases the first buffer
    EXPECT_TRUE(texture.usable());
}

TEST(TextureAllocate, APlacedLayoutBelongsToItsOwner) {
    VxTexIndexer layout;
    layout.x.setSize(3);
    layout.y.setSize(2);
    layout.y.offset = -7;
    Rgba8 pixels[6]{};
    VxTexture<Rgba8> texture;
    texture.setFill({{1, 2, 3, 4}});
    texture.placeLayout(layout, reinterpret_cast<std::byte*>(pixels));
    EXPECT_TRUE(texture.usable());
    EXPECT_EQ(texture.owned, 0);
    EXPECT_EQ(texture.stride, 12);
    EXPECT_EQ(texture.fill, (Rgba8{{1, 2, 3, 4}}));
    EXPECT_EQ(texture.writeAt(2, -6), pixels + 5);
    texture.placeLayout(layout, nullptr);
    EXPECT_FALSE(texture.usable());
}

TEST(TextureAllocate, ASizeOfNoughtLeavesNoBufferAndIsNoFailure) {
    VxTexture<Rgba8> texture;
    texture.x.setSize(5);
    texture.allocate();
    EXPECT_EQ(texture.data, nullptr);
    EXPECT_EQ(texture.owned, 1);
    EXPECT_EQ(texture.allocationFailed, 0);
}

TEST(TextureAllocate, AnImageOfTwoGigabytesIsRefused) {
    // 2^31 bytes: one more than a size can say. The product wraps in 32 bits for the second.
    for (const auto& [width, height] : {std::pair{32768, 8192}, std::pair{65536, 65536}}) {
        VxTexture<RgbaS214> texture;
        texture.x.setSize(width);
        texture.y.setSize(height);
        texture.allocate();
        EXPECT_EQ(texture.data, nullptr);
        EXPECT_EQ(texture.allocationFailed, 1);
        texture.y.setSize(1);
        texture.allocate();
        EXPECT_EQ(texture.allocationFailed, 0) << "the flag is cleared by the next allocation";
    }
}

TEST(TextureAllocate, TheLargestImagesAreCountedExactly) {
    EXPECT_EQ(imageBytes(INT32_MAX, 1, 1), INT32_MAX);
    EXPECT_EQ(imageBytes(32767, 16384, 4), 32767 * 16384 * 4);
    EXPECT_EQ(imageBytes(32768, 16384, 4), 0);
    EXPECT_EQ(imageBytes(INT32_MAX, INT32_MAX, 16), 0);
    EXPECT_EQ(imageBytes(-4, -4, 4), 0);
    EXPECT_EQ(imageBytes(0, 4, 4), 0);
}

TEST(TextureAllocate, NegativeSizesAreRefused) {
    VxTexture<Rgba8> texture;
    texture.x.setSize(-4);
    texture.y.setSize(-4);
    texture.allocate();
    EXPECT_EQ(texture.data, nullptr);
    EXPECT_EQ(texture.allocationFailed, 1);
}

TEST(TextureAllocateRegion, IsAddressedInImageSpace) {
    VxTexture<Rgba8> texture;
    texture.allocateRegion(-3, 10, 4, 12);
    ASSERT_TRUE(texture.usable());
    EXPECT_EQ(texture.x.size, 8);
    EXPECT_EQ(texture.y.size, 3);
    EXPECT_EQ(texture.x.origin, -3);
    EXPECT_EQ(texture.x.originF, -3.0f);
    EXPECT_EQ(texture.x.offset, -3);
    EXPECT_EQ(texture.y.origin, 10);
    EXPECT_EQ(texture.y.offset, 10);
    *texture.writeAt(-3, 10) = Rgba8{{1, 2, 3, 4}};
    *texture.writeAt(4, 12) = Rgba8{{5, 6, 7, 8}};
    EXPECT_EQ(*texture.pixelAt(-3, 10), (Rgba8{{1, 2, 3, 4}}));
    EXPECT_EQ(*texture.pixelAt(4, 12), (Rgba8{{5, 6, 7, 8}}));
    EXPECT_EQ(texture.pixelAt(5, 12), nullptr);
    EXPECT_EQ(texture.writeAt(4, 12), texture.bufferRow(2) + 7);
}

TEST(TextureAllocateRegion, CanStartAsZeroes) {
    VxTexture<RgbaS214> texture;
    texture.allocateRegion(5, 5, 68, 68, Contents::Zero);
    for (std::int32_t row = 0; row < 64; ++row) {
        for (std::int32_t column = 0; column < 64; ++column) {
            ASSERT_EQ(texture.bufferRow(row)[column], RgbaS214{});
        }
    }
}

TEST(TextureAllocateRegion, CrossedCornersGiveNoBuffer) {
    VxTexture<Rgba8> texture;
    texture.allocateRegion(0, 0, -1, 5);
    EXPECT_EQ(texture.data, nullptr);
    EXPECT_EQ(texture.x.size, 0);
    texture.allocateRegion(INT32_MIN, 0, INT32_MAX, 0);
    EXPECT_EQ(texture.data, nullptr);
    EXPECT_EQ(texture.allocationFailed, 1);
}

TEST(TextureWrap, BorrowsPixelsAndMakesAllOfThemValid) {
    std::array<Rgba8, 12> pixels{};
    VxTexture<Rgba8> texture;
    texture.allocateRegion(0, 0, 9, 9);
    texture.setEdgeMethods(1, 2);
    texture.setRange(2, 3, 2, 3);
    texture.wrap(4, 3, pixels.data());
    EXPECT_EQ(static_cast<void*>(texture.data), pixels.data());
    EXPECT_EQ(texture.owned, 0);
    EXPECT_EQ(texture.stride, 16);
    EXPECT_EQ(texture.x.size, 4);
    EXPECT_EQ(texture.x.hi, 3);
    EXPECT_EQ(texture.y.count, 3);
    EXPECT_EQ(texture.x.edgeMethod, 1u);
    EXPECT_EQ(texture.pixelAt(1, 2), &pixels[9]);
}

TEST(TextureWrap, AStrideOfTwoRowsIsAFieldView) {
    Canvas<Rgba8> frame(4, 6, {0, false});
    frame.number();
    VxTexture<Rgba8> field;
    field.wrap(4, 3, &frame.at(0, 1));
    field.stride = frame.texture.stride * 2;
    for (std::int32_t row = 0; row < 3; ++row) {
        EXPECT_EQ(*field.pixelAt(2, row), placePixel<Rgba8>(2, 2 * row + 1));
    }
}

TEST(TextureWrap, ANegativeStrideReadsUpwards) {
    Canvas<Rgba8> canvas(3, 4, {1, true});
    canvas.number();
    EXPECT_LT(canvas.texture.stride, 0);
    EXPECT_EQ(*canvas.texture.pixelAt(2, 3), placePixel<Rgba8>(2, 3));
}

TEST(TextureClear, KeepsEdgeMethodsAndOrigins) {
    VxTexture<Rgba8> texture;
    texture.allocateRegion(2, 3, 9, 9);
    texture.setEdgeMethods(1, 2);
    texture.clear();
    EXPECT_EQ(texture.data, nullptr);
    EXPECT_EQ(texture.stride, 0);
    EXPECT_EQ(texture.x.size, 0);
    EXPECT_EQ(texture.x.lo, 0);
    EXPECT_EQ(texture.x.hi, -1);
    EXPECT_EQ(texture.y.count, 0);
    EXPECT_EQ(texture.owned, 1);
    EXPECT_EQ(texture.x.edgeMethod, 1u);
    EXPECT_EQ(texture.y.edgeMethod, 2u);
    EXPECT_EQ(texture.x.origin, 2);
    texture.clear();
    EXPECT_EQ(texture.data, nullptr);
}

TEST(TextureCloneLayout, TakesGeometryAndFillWithABufferOfItsOwn) {
    Canvas<Rgba8> source(6, 4, {3, true});
    source.number();
    source.texture.setOrigin(1.25f, -2.0f);
    source.texture.setEdgeMethods(2, 3);
    source.texture.setRange(1, 4, 0, 2);
    source.texture.setFill({{9, 8, 7, 6}});
    VxTexture<Rgba8> clone;
    clone.cloneLayout(source.texture, Contents::Zero);
    ASSERT_TRUE(clone.usable());
    EXPECT_NE(clone.data, source.texture.data);
    EXPECT_EQ(clone.owned, 1);
    EXPECT_EQ(clone.stride, 24) << "rows of the copy are contiguous, upwards";
    EXPECT_EQ(clone.x.originF, 1.25f);
    EXPECT_EQ(clone.y.edgeMethod, 3u);
    EXPECT_EQ(clone.x.lo, 1);
    EXPECT_EQ(clone.y.hi, 2);
    EXPECT_EQ(clone.fill, (Rgba8{{9, 8, 7, 6}}));
    EXPECT_EQ(clone.bufferRow(3)[5], Rgba8{}) << "pixels are not copied";
}

TEST(TextureCloneLayout, ABareLayoutKeepsTheFill) {
    Canvas<Rgba8> source(6, 4);
    const VxTexIndexer padded(source.texture, {1, 1, 1, 1});
    VxTexture<Rgba8> texture;
    texture.setFill({{1, 2, 3, 4}});
    texture.allocateLayout(padded);
    EXPECT_EQ(texture.x.size, 8);
    EXPECT_EQ(texture.y.origin, -1);
    EXPECT_EQ(texture.fill, (Rgba8{{1, 2, 3, 4}}));
}

TEST(TextureRefer, IsAViewWithAnIndexModelOfItsOwn) {
    Canvas<Rgba8> source(6, 4, {3, true});
    source.number();
    source.texture.setEdgeMethods(1, 1);
    source.texture.setFill({{9, 8, 7, 6}});
    VxTexture<Rgba8> view;
    view.allocateRegion(0, 0, 3, 3);
    view.refer(source.texture);
    EXPECT_EQ(view.data, source.texture.data);
    EXPECT_EQ(view.owned, 0);
    EXPECT_EQ(view.stride, source.texture.stride);
    EXPECT_EQ(view.fill, source.texture.fill);
    view.setEdgeMethods(0, 0);
    view.setOrigin(5, 5);
    EXPECT_EQ(source.texture.x.edgeMethod, 1u);
    EXPECT_EQ(source.texture.x.origin, 0);
    EXPECT_EQ(*view.pixelAt(7, 6), placePixel<Rgba8>(2, 1));
}

TEST(TextureRefer, DoesNothingOnItselfOrOnSharedPixels) {
    VxTexture<Rgba8> texture;
    texture.allocateRegion(0, 0, 3, 3);
    const auto* data = texture.data;
    texture.refer(texture);
    EXPECT_EQ(texture.data, data);
    EXPECT_EQ(texture.owned, 1);

    VxTexture<Rgba8> view;
    view.refer(texture);
    view.setOrigin(5, 5);
    view.refer(texture);
    EXPECT_EQ(view.x.origin, 5) << "the view had these pixels already";
}

TEST(TexturePixelAt, SubtractsTheOriginAndAppliesEdges) {
    Canvas<Rgba8> canvas(5, 4);
    canvas.number();
    canvas.texture.setOrigin(10, 20);
    EXPECT_EQ(*canvas.texture.pixelAt(10, 20), placePixel<Rgba8>(0, 0));
    EXPECT_EQ(canvas.texture.pixelAt(9, 20), nullptr);
    EXPECT_EQ(canvas.texture.pixelAt(10, 24), nullptr);
    canvas.texture.setEdgeMethods(1, 3);
    EXPECT_EQ(*canvas.texture.pixelAt(0, 24), placePixel<Rgba8>(0, 0));
    EXPECT_EQ(*canvas.texture.pixelAt(INT32_MAX, 21), placePixel<Rgba8>(4, 1));
}

TEST(TextureSample, APixelCentreGivesTheStoredValue) {
    Canvas<Rgba8> canvas(5, 4);
    canvas.number();
    for (const std::uint32_t method : {0u, 1u, 2u, 3u}) {
        canvas.texture.setEdgeMethods(method, method);
        for (std::int32_t row = 0; row < 4; ++row) {
            for (std::int32_t column = 0; column < 5; ++column) {
                const RgbaFloat sample = sampleAt(canvas.texture, static_cast<float>(column) + 0.5f,
                                                  static_cast<float>(row) + 0.5f);
                EXPECT_EQ(sample.c[0], static_cast<float>(column));
                EXPECT_EQ(sample.c[1], static_cast<float>(row));
            }
        }
    }
}

TEST(TextureSample, BlendsFourNeighboursAndSubtractsTheRealOrigin) {
    Canvas<Rgba8> canvas(5, 4);
    canvas.number();
    canvas.texture.setOrigin(0.25f, 100.0f);
    const RgbaFloat sample = sampleAt(canvas.texture, 2.0f, 102.0f);
    EXPECT_EQ(sample.c[0], 1.25f);
    EXPECT_EQ(sample.c[1], 1.5f);
    EXPECT_EQ(sample.c[2], 100.0f);
}

TEST(TextureSample, FillBlendsHalfWayAtTheSeam) {
    Canvas<Rgba8> canvas(5, 4);
    canvas.number();
    canvas.texture.setFill({{200, 200, 200, 200}});
    // Half a pixel outside on the left: the first pixel (blue 100) and the fill, in equal parts.
    EXPECT_EQ(sampleAt(canvas.texture, 0.0f, 1.5f).c[2], 150.0f);
    EXPECT_EQ(sampleAt(canvas.texture, 5.0f, 1.5f).c[2], 150.0f);
    EXPECT_EQ(sampleAt(canvas.texture, 0.0f, 0.0f).c[2], 175.0f);
}

TEST(TextureSample, MoreThanAPixelOutsideOnOneAxisIsTheFillUnchanged) {
    Canvas<Rgba8> canvas(5, 4);
    canvas.number();
    canvas.texture.setFill({{200, 201, 202, 203}});
    for (const auto& [x, y] : {std::pair{-0.75f, 1.5f}, std::pair{6.0f, 1.25f},
                               std::pair{2.25f, -1.0f}, std::pair{2.25f, 30.0f}}) {
        const RgbaFloat sample = sampleAt(canvas.texture, x, y);
        EXPECT_EQ(sample, (RgbaFloat{{200, 201, 202, 203}})) << x << ", " << y;
    }
}

TEST(TextureSample, IntegerImagesTruncateEachStep) {
    Canvas<std::int32_t> canvas(2, 2, {0, false});
    canvas.at(0, 0) = 0;
    canvas.at(1, 0) = 3;
    canvas.at(0, 1) = 0;
    canvas.at(1, 1) = 6;
    std::int32_t sample = 0;
    // Rows give trunc(1.5) = 1 and 3; half way between them is 2.
    canvas.texture.sample(sample, 1.0f, 1.0f);
    EXPECT_EQ(sample, 2);
    // Rows give trunc(2.25) = 2 and trunc(4.5) = 4.
    canvas.texture.sample(sample, 1.25f, 0.75f);
    EXPECT_EQ(sample, 2);
}

TEST(TextureSample, IntegerImageHalfWayToTheTop) {
    Canvas<RgbaInt> canvas(2, 1, {0, false});
    canvas.at(0, 0) = RgbaInt{{0, 0, 0, 0}};
    canvas.at(1, 0) = RgbaInt{{INT32_MAX, 10, 0, 0}};
    RgbaInt sample{};
    canvas.texture.sample(sample, 1.0f, 0.5f);
    EXPECT_EQ(sample.c[0], 1073741824);
    EXPECT_EQ(sample.c[1], 5);
}

TEST(TextureSample, S214KeepsItsSignAndIsNotNormalised) {
    Canvas<RgbaS214> canvas(2, 1);
    canvas.texture.setEdgeMethods(1, 1);
    canvas.at(0, 0) = RgbaS214{{-32768, 32767, 16384, 0}};
    canvas.at(1, 0) = RgbaS214{{-32768, 32767, 0, 1}};
    RgbaFloat sample{};
    canvas.texture.sample(sample, 1.0f, 0.5f);
    EXPECT_EQ(sample, (RgbaFloat{{-32768.0f, 32767.0f, 8192.0f, 0.5f}}));
}

TEST(TextureSample, AreasAreSampledAtTheirCentre) {
    Canvas<Rgba8> canvas(5, 4);
    canvas.number();
    const RgbaFloat plain = sampleAt(canvas.texture, 2.3f, 1.7f);
    RgbaFloat box{};
    for (const float reach : {0.0f, 0.1f, 3.0f, -7.5f, 1e6f}) {
        canvas.texture.sampleBox(box, 2.3f, 1.7f, reach, reach * 2.0f);
        EXPECT_EQ(box, plain) << reach;
    }
    canvas.texture.sampleBetween(box, 1.0, 1.0, 3.0, 2.0);
    EXPECT_EQ(box, sampleAt(canvas.texture, 2.0f, 1.5f));
}

TEST(TextureSample, ATextureWithoutPixelsGivesItsFill) {
    VxTexture<Rgba8> texture;
    texture.setFill({{1, 2, 3, 4}});
    for (const std::uint32_t method : {0u, 1u, 2u, 3u}) {
        texture.setEdgeMethods(method, method);
        EXPECT_EQ(sampleAt(texture, 0.5f, 0.5f), (RgbaFloat{{1, 2, 3, 4}}));
        EXPECT_EQ(texture.pixelAt(0, 0), nullptr);
    }
}

TEST(TextureSample, APositionThatIsNoNumberIsDefined) {
    Canvas<Rgba8> canvas(5, 4);
    canvas.number();
    canvas.texture.setFill({{1, 2, 3, 4}});
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(sampleAt(canvas.texture, kNan, 1.0f), (RgbaFloat{{1, 2, 3, 4}}));
    EXPECT_EQ(sampleAt(canvas.texture, 1.0f, -kInfinity), (RgbaFloat{{1, 2, 3, 4}}));
    canvas.texture.setEdgeMethods(1, 1);
    EXPECT_EQ(sampleAt(canvas.texture, kInfinity, 1.5f).c[1], 1.0f);
}

}  // namespace
}  // namespace ruvex
