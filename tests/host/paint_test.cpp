#include "host/base/paint.h"

#include <gtest/gtest.h>

#include "tests/host/support/plain_effect.h"
#include "tests/imaging/support/canvas.h"

namespace ruvex::test {
namespace {

template <class P>
P grey(int value) {
    const auto c = static_cast<typename P::Component>(value);
    return {{c, c, c, c}};
}

template <class P>
class Paint : public testing::Test {
protected:
    // What one pixel of the effect becomes: the input and the mask byte, each none below 0.
    P painted(const P& effectPixel, int inputValue, int maskByte) {
        Canvas<P> output(1, 1), input(1, 1);
        Canvas<Channel8> mask(1, 1);
        output.at(0, 0) = effectPixel;
        input.at(0, 0) = grey<P>(inputValue);
        mask.at(0, 0).c[0] = static_cast<std::uint8_t>(maskByte);
        // What is not there is moved away.
        if (inputValue < 0) input.texture.setOrigin(5, 0);
        if (maskByte < 0) mask.texture.setOrigin(0, -1);
        PlainEffect effect(1, 1);
        paintThroughMask(effect, output.texture, input.texture, mask.texture);
        return output.at(0, 0);
    }
    static constexpr int kNone = -1;
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Paint, FramePixels);

TYPED_TEST(Paint, OverAnInput) {
    const auto effect = grey<TypeParam>(200);
    EXPECT_EQ(this->painted(effect, 40, 0), grey<TypeParam>(40));
    EXPECT_EQ(this->painted(effect, 40, 255), effect);
    EXPECT_EQ(this->painted(effect, 40, 128), grey<TypeParam>(40 + 160 * 128 / 255));
    EXPECT_EQ(this->painted(effect, 40, this->kNone), grey<TypeParam>(40));
}

TYPED_TEST(Paint, WhereThereIsNoInput) {
    const auto effect = grey<TypeParam>(200);
    EXPECT_EQ(this->painted(effect, this->kNone, 0), TypeParam{});
    EXPECT_EQ(this->painted(effect, this->kNone, 255), effect);
    EXPECT_EQ(this->painted(effect, this->kNone, 128), grey<TypeParam>(200 * 128 / 255));
    EXPECT_EQ(this->painted(effect, this->kNone, this->kNone), TypeParam{});
}

TYPED_TEST(Paint, TheDivisionTruncatesTowardsZero) {
    // Downwards from 41 to 40: a part of -1 is cut to nothing, and so is a part of +1 upwards.
    EXPECT_EQ(this->painted(grey<TypeParam>(40), 41, 254), grey<TypeParam>(41));
    EXPECT_EQ(this->painted(grey<TypeParam>(41), 40, 254), grey<TypeParam>(40));
    EXPECT_EQ(this->painted(grey<TypeParam>(0), 10, 30), grey<TypeParam>(9));
}

TEST(PaintS214, NegativeAndBrightValuesArePartsToo) {
    Canvas<RgbaS214> output(1, 1), input(1, 1);
    Canvas<Channel8> mask(1, 1);
    output.at(0, 0) = {{-32768, 32767, -100, 20000}};
    input.at(0, 0) = {{32767, -32768, 100, 20000}};
    mask.at(0, 0).c[0] = 100;
    PlainEffect effect(1, 1);
    paintThroughMask(effect, output.texture, input.texture, mask.texture);
    const RgbaS214 wanted{
        {32767 - 65535 * 100 / 255, -32768 + 65535 * 100 / 255, 100 - 200 * 100 / 255, 20000}};
    EXPECT_EQ(output.at(0, 0), wanted);
}

TYPED_TEST(Paint, AMaskOfZeroLeavesThePictureAsTheInputShowsIt) {
    Random random(5);
    Canvas<TypeParam> output(13, 8), input(13, 8);
    Canvas<Channel8> mask(13, 8);
    output.scribble(random);
    input.scribble(random);
    // Neither the crop of the input nor its edge methods count here.
    input.texture.setRange(4, 6, 2, 3);
    input.texture.setEdgeMethods(kEdgeWrap, kEdgeMirror);
    PlainEffect effect(13, 8);
    paintThroughMask(effect, output.texture, input.texture, mask.texture);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 13; ++x) EXPECT_EQ(output.at(x, y), input.at(x, y));
    }
    EXPECT_EQ(input.texture.x.lo, 4) << "the view is another's";
}

TYPED_TEST(Paint, AnInterruptedRenderKeepsTheEffect) {
    Random random(6);
    Canvas<TypeParam> output(5, 5), input(5, 5);
    Canvas<Channel8> mask(5, 5);
    output.scribble(random);
    const auto before = output.memory;
    PlainEffect effect(5, 5);
    effect.interruption.interrupted = 1;
    paintThroughMask(effect, output.texture, input.texture, mask.texture);
    EXPECT_EQ(firstDifference(output.memory, before), "");
}

}  // namespace
}  // namespace ruvex::test
