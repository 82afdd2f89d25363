#include "host/base/channel_mask.h"

#include <gtest/gtest.h>

#include "tests/host/support/plain_effect.h"
#include "tests/imaging/support/canvas.h"

namespace ruvex::test {
namespace {

template <class P>
class ChannelMasks : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(ChannelMasks, FramePixels);

// An effect's output over an input, both of random pixels.
template <class P>
struct Pictures {
    Pictures() : input(11, 6), output(11, 6), effect(11, 6) {
        Random random(11);
        input.scribble(random);
        output.scribble(random);
        before = output.memory;
        effect.alphaMaskable = 1;
    }

    P was(int x, int y) const { return before[output.indexOf(x, y)]; }

    Canvas<P> input, output;
    std::vector<P> before;
    PlainEffect effect;
};

TYPED_TEST(ChannelMasks, AllOnDoesNothingAtAll) {
    Pictures<TypeParam> p;
    p.input.texture.setRange(3, 5, 1, 2);
    fixChannelMask(p.effect, p.output.texture, p.input.texture, {1, 1, 1, 1});
    EXPECT_EQ(firstDifference(p.output.memory, p.before), "");
    EXPECT_EQ(p.input.texture.x.lo, 3) << "the input's window is not touched either";
}

TYPED_TEST(ChannelMasks, AChannelThatIsOffIsTheInputsAndTheOthersStay) {
    for (int off = 0; off < 4; ++off) {
        Pictures<TypeParam> p;
        ChannelMask mask{1, 1, 1, 1};
        (off == 0 ? mask.red : off == 1 ? mask.green : off == 2 ? mask.blue : mask.alpha) = 0;
        fixChannelMask(p.effect, p.output.texture, p.input.texture, mask);
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 11; ++x) {
                for (int k = 0; k < 4; ++k) {
                    const TypeParam wanted = k == off ? p.input.at(x, y) : p.was(x, y);
                    EXPECT_EQ(p.output.at(x, y).c[k], wanted.c[k]) << x << ',' << y << ' ' << k;
                }
            }
        }
    }
}

TYPED_TEST(ChannelMasks, AllOffIsAPlainCopyOfTheWholeInputWhateverItsCrop) {
    Pictures<TypeParam> p;
    p.input.texture.setRange(3, 5, 1, 2);
    p.input.texture.setEdgeMethods(kEdgeFill, kEdgeHold);
    fixChannelMask(p.effect, p.output.texture, p.input.texture, {0, 0, 0, 0});
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 11; ++x) EXPECT_EQ(p.output.at(x, y), p.input.at(x, y));
    }
}

TYPED_TEST(ChannelMasks, AlphaStaysWhereTheEffectDoesNotLetItTakePart) {
    Pictures<TypeParam> p;
    p.effect.alphaMaskable = 0;
    fixChannelMask(p.effect, p.output.texture, p.input.texture, {1, 1, 1, 0});
    EXPECT_EQ(firstDifference(p.output.memory, p.before), "");
}

TYPED_TEST(ChannelMasks, NothingIsWrittenOutsideTheInput) {
    // An input that lies to one side of the output, over its corner, and wholly beyond it.
    const std::pair<int, int> origins[] = {{4, 2}, {-7, -3}, {40, 0}, {0, -60}, {11, 6}};
    for (const auto& [x0, y0] : origins) {
        Pictures<TypeParam> p;
        p.input.texture.setOrigin(x0, y0);
        p.effect.region = {.x0 = x0, .x1 = x0 + 10, .y0 = y0, .y1 = y0 + 5};
        fixChannelMask(p.effect, p.output.texture, p.input.texture, {0, 0, 0, 0});
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 11; ++x) {
                const bool covered = x >= x0 && x < x0 + 11 && y >= y0 && y < y0 + 6;
                EXPECT_EQ(p.output.at(x, y), covered ? p.input.at(x - x0, y - y0) : p.was(x, y))
                    << x << ',' << y << " with the input at " << x0 << ',' << y0;
            }
        }
    }
}

TYPED_TEST(ChannelMasks, WithoutAnInputThereIsNothingToGiveBack) {
    Pictures<TypeParam> p;
    VxTexture<TypeParam> nothing;
    fixChannelMask(p.effect, p.output.texture, nothing, {0, 0, 0, 0});
    EXPECT_EQ(firstDifference(p.output.memory, p.before), "");
}

TYPED_TEST(ChannelMasks, AFieldKeepsToItsRows) {
    for (const int selector : {1, 2}) {
        Pictures<TypeParam> p;
        p.effect.fieldHandling = FieldHandling::SkipRows;
        p.effect.fieldSelector = selector;
        fixChannelMask(p.effect, p.output.texture, p.input.texture, {0, 0, 0, 0});
        for (int y = 0; y < 6; ++y) {
            const bool ours = y % 2 == selector - 1;
            EXPECT_EQ(p.output.at(3, y), ours ? p.input.at(3, y) : p.was(3, y)) << y;
        }
    }
}

TYPED_TEST(ChannelMasks, AnInterruptedRenderKeepsTheEffect) {
    Pictures<TypeParam> p;
    p.effect.interruption.interrupted = 1;
    fixChannelMask(p.effect, p.output.texture, p.input.texture, {0, 0, 0, 0});
    EXPECT_EQ(firstDifference(p.output.memory, p.before), "");
}

TEST(FinishingRegion, CountsRowsHalfInAFieldOfHalfHeight) {
    PlainEffect effect(20, 9);
    effect.fieldHandling = FieldHandling::HalfHeight;
    effect.fieldSelector = 2;
    effect.fieldScaleY = 0.5f;
    EXPECT_EQ(finishingRegion(effect), (PixelRegion{.x0 = 0, .x1 = 19, .y0 = 0, .y1 = 4}));
    EXPECT_EQ(fieldOf(effect), 0);
    effect.fieldHandling = FieldHandling::SkipRows;
    EXPECT_EQ(fieldOf(effect), 2);
}

}  // namespace
}  // namespace ruvex::test
