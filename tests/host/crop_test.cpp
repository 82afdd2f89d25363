#include "host/base/crop.h"

#include <gtest/gtest.h>

#include "tests/host/support/plain_effect.h"
#include "tests/imaging/support/canvas.h"

namespace ruvex::test {
namespace {

template <class P>
class Crop : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Crop, FramePixels);

CropState fractions(float left, float right, float bottom, float top) {
    return {.left = left, .right = right, .bottom = bottom, .top = top, .edgeColour = {}};
}

TYPED_TEST(Crop, TheDefaultsCropNothingAndReflect) {
    const PlainEffect effect(10, 7);
    Canvas<TypeParam> canvas(10, 7);
    applyCrop(effect, canvas.texture);
    EXPECT_EQ(canvas.texture.x.lo, 0);
    EXPECT_EQ(canvas.texture.x.hi, 9);
    EXPECT_EQ(canvas.texture.y.lo, 0);
    EXPECT_EQ(canvas.texture.y.hi, 6);
    EXPECT_EQ(canvas.texture.x.edgeMethod, kEdgeMirror);
    EXPECT_EQ(canvas.texture.y.edgeMethod, kEdgeMirror);
}

TYPED_TEST(Crop, EndsAreTruncatedAndInclusive) {
    PlainEffect effect(10, 10);
    effect.crop = fractions(0.29f, 0.79f, 0.31f, 0.5f);
    Canvas<TypeParam> canvas(10, 10);
    applyCrop(effect, canvas.texture);
    EXPECT_EQ(canvas.texture.x.lo, 2);
    EXPECT_EQ(canvas.texture.x.hi, 7);
    EXPECT_EQ(canvas.texture.y.lo, 3);
    EXPECT_EQ(canvas.texture.y.hi, 5);
}

TYPED_TEST(Crop, ALeftBeyondTheRightSimplySwapsThem) {
    PlainEffect effect(100, 100);
    effect.crop = fractions(0.2f, 0.1f, 0.9f, 0.3f);
    Canvas<TypeParam> swapped(100, 100), ordered(100, 100);
    applyCrop(effect, swapped.texture);
    effect.crop = fractions(0.1f, 0.2f, 0.3f, 0.9f);
    applyCrop(effect, ordered.texture);
    EXPECT_EQ(swapped.texture.x.lo, 10);
    EXPECT_EQ(swapped.texture.x.hi, ordered.texture.x.hi);
    EXPECT_EQ(swapped.texture.y.lo, ordered.texture.y.lo);
    EXPECT_EQ(swapped.texture.y.hi, ordered.texture.y.hi);
}

TYPED_TEST(Crop, FractionsOutsideThePictureAreHeldToIt) {
    PlainEffect effect(10, 10);
    effect.crop = fractions(-3.0f, 7.0f, -1e30f, NAN);
    Canvas<TypeParam> canvas(10, 10);
    applyCrop(effect, canvas.texture);
    EXPECT_EQ(canvas.texture.x.lo, 0);
    EXPECT_EQ(canvas.texture.x.hi, 9);
    EXPECT_EQ(canvas.texture.y.lo, 0);
    EXPECT_EQ(canvas.texture.y.hi, 0);
}

TYPED_TEST(Crop, TheModeSaysHowMuchOfItActs) {
    PlainEffect effect(10, 10);
    effect.crop = fractions(0.5f, 1.0f, 0.0f, 1.0f);
    effect.crop.edgeColour[0] = 1.0f;
    Canvas<TypeParam> none(10, 10), window(10, 10);
    effect.cropMode = CropMode::None;
    applyCrop(effect, none.texture);
    EXPECT_EQ(none.texture.x.lo, 0);
    effect.cropMode = CropMode::Window;
    applyCrop(effect, window.texture);
    EXPECT_EQ(window.texture.x.lo, 5);
    EXPECT_EQ(window.texture.x.edgeMethod, kEdgeFill);
    EXPECT_EQ(window.texture.fill, TypeParam{});
}

TYPED_TEST(Crop, TheEdgeColourIsAPartOfWhite) {
    PlainEffect effect(4, 4);
    effect.crop.edgeColour[0] = 0.5f;
    effect.crop.edgeColour[1] = 1.0f;
    effect.crop.edgeColour[2] = 0.999f;
    effect.parameters.integer(ParameterId::XEdgeMethod) = 0;
    effect.parameters.integer(ParameterId::YEdgeMethod) = 3;
    Canvas<TypeParam> canvas(4, 4);
    applyCrop(effect, canvas.texture);
    constexpr bool kBytes = sizeof(TypeParam) == 4;
    const TypeParam wanted =
        kBytes ? TypeParam{{127, 255, 254, 0}}
               : TypeParam{{static_cast<typename TypeParam::Component>(8192),
                            static_cast<typename TypeParam::Component>(16384),
                            static_cast<typename TypeParam::Component>(16367), 0}};
    EXPECT_EQ(canvas.texture.fill, wanted);
    EXPECT_EQ(canvas.texture.x.edgeMethod, kEdgeFill);
    EXPECT_EQ(canvas.texture.y.edgeMethod, kEdgeWrap);
}

template <class P>
bool cleared(Canvas<P>& canvas, int x, int y) {
    return canvas.at(x, y) == P{};
}

TYPED_TEST(Crop, BlankingDrawsNothingWhenTheRectangleCoversTheOutput) {
    PlainEffect effect(12, 9);
    Canvas<TypeParam> input(12, 9), output(12, 9);
    Random random(1);
    output.scribble(random);
    const auto before = output.memory;
    blankOutside(effect, output.texture, input.texture, std::nullopt);
    EXPECT_EQ(firstDifference(output.memory, before), "");
}

TYPED_TEST(Crop, BlankingKeepsTheRectangleAtTheInputsPlace) {
    PlainEffect effect(12, 9);
    effect.crop = fractions(0.75f, 0.25f, 0.34f, 1.0f);
    Canvas<TypeParam> input(12, 9), output(12, 9);
    input.texture.setOrigin(2, -1);
    Random random(2);
    output.scribble(random);
    const Canvas<TypeParam>& kept = output;
    const auto before = kept.memory;
    blankOutside(effect, output.texture, input.texture, std::nullopt);
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 12; ++x) {
            // Columns 3 to 8 of the input, and rows 3 to 8, moved by its origin.
            const bool inside = x >= 5 && x < 11 && y >= 2 && y < 8;
            EXPECT_EQ(output.at(x, y), inside ? before[output.indexOf(x, y)] : TypeParam{});
        }
    }
}

TYPED_TEST(Crop, BlankingStaysInItsRegion) {
    PlainEffect effect(12, 9);
    effect.crop = fractions(0.5f, 0.75f, 0.0f, 1.0f);
    Canvas<TypeParam> input(12, 9), output(12, 9);
    Random random(3);
    output.scribble(random);
    const auto before = output.memory;
    blankOutside(effect, output.texture, input.texture,
                 PixelRegion{.x0 = 4, .x1 = 10, .y0 = 2, .y1 = 3});
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 12; ++x) {
            const bool blank = x >= 4 && x <= 10 && y >= 2 && y <= 3 && !(x >= 6 && x < 9);
            EXPECT_EQ(output.at(x, y), blank ? TypeParam{} : before[output.indexOf(x, y)]);
        }
    }
}

TYPED_TEST(Crop, BlankingEndsWithAnInterruptedRender) {
    PlainEffect effect(12, 9);
    effect.crop = fractions(0.5f, 0.5f, 0.5f, 0.5f);
    effect.interruption.interrupted = 1;
    Canvas<TypeParam> input(12, 9), output(12, 9);
    Random random(4);
    output.scribble(random);
    const auto before = output.memory;
    blankOutside(effect, output.texture, input.texture, std::nullopt);
    EXPECT_EQ(firstDifference(output.memory, before), "");
}

}  // namespace
}  // namespace ruvex::test
