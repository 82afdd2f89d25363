#include "stages/white_dot.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class WhiteDot : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(WhiteDot, FramePixels);

// A picture shrunk by a part of the dot, without its halo.
template <class P>
struct Shrunk {
    Shrunk(float whiteDot, int width, int height) : target(width, height) {
        Random random(4);
        Canvas<P> picture(width, height);
        fillWithSignal(picture, random);
        SignalParameters signal = perfectSignal(width, height);
        signal.whiteDot = whiteDot;
        shrinkToDot(signal, picture.texture, target.texture, Span{0, height}, Span{0, width},
                    nullptr);
    }
    Canvas<P> target;
};

TYPED_TEST(WhiteDot, WithoutItThePictureIsPassedOn) {
    Television<TypeParam> set(20, 16);
    set.signal.whiteDot = 0.0f;
    EXPECT_TRUE(set.run().unchanged());
    EXPECT_EQ(set.sampler->dotTexture.data, nullptr);
}

TYPED_TEST(WhiteDot, ATraceOfItDarkensByOneInTwoHundredAtMost) {
    Canvas<TypeParam> picture(64, 48);
    for (auto& pixel : picture.memory) pixel = {{200, 200, 200, 200}};
    Canvas<TypeParam> target(64, 48);
    SignalParameters signal = perfectSignal(64, 48);
    signal.whiteDot = 1e-6f;
    shrinkToDot(signal, picture.texture, target.texture, Span{0, 48}, Span{0, 64}, nullptr);
    for (int y = 40; y < 48; ++y) {
        for (int x = 4; x < 60; ++x) EXPECT_GE(target.at(x, y).c[0], 199) << x << ", " << y;
    }
}

TYPED_TEST(WhiteDot, ARowTooNarrowForAPixelIsCleared) {
    const Shrunk<TypeParam> dot(0.9f, 1, 400);
    for (const auto& pixel : dot.target.memory) EXPECT_EQ(pixel, TypeParam{});
}

TYPED_TEST(WhiteDot, TheDotHasNoAlpha) {
    for (const float dot : {0.1f, 0.5f, 0.9f}) {
        int lit = 0;
        const Shrunk<TypeParam> picture(dot, 200, 150);
        for (const auto& pixel : picture.target.memory) {
            ASSERT_EQ(pixel.c[3], 0);
            lit += pixel.c[0] > 0;
        }
        EXPECT_GT(lit, 0) << dot;
    }
    Television<TypeParam> set(64, 48);
    set.signal.whiteDot = 0.3f;
    set.run();
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x) ASSERT_EQ(set.shown(x, y).c[3], 0) << "nor has its halo";
    }
}

TYPED_TEST(WhiteDot, ThePictureFallsInAsATrapeziumAndBurnsOut) {
    Shrunk<TypeParam> dot(0.2f, 400, 300);
    Canvas<TypeParam>& target = dot.target;
    const auto litIn = [&](int y) {
        int lit = 0;
        for (int x = 0; x < 400; ++x) lit += target.at(x, y).c[0] > 0;
        return lit;
    };
    int first = 0;
    while (first < 300 && litIn(first) == 0) ++first;
    int last = 299;
    while (last > first && litIn(last) == 0) --last;
    EXPECT_GT(first, 100);
    EXPECT_LT(last, 200);
    EXPECT_LT(litIn(first), litIn(last));
    const int top = sizeof(TypeParam) == 4 ? 255 : 32767;
    EXPECT_GT(target.at(200, 150).c[0], top / 2) << "the light of several pixels in one";
}

TYPED_TEST(WhiteDot, TheLastOfItIsWhite) {
    Shrunk<TypeParam> dot(0.99f, 1000, 1000);
    const int top = sizeof(TypeParam) == 4 ? 255 : 32767;
    int lit = 0;
    for (const auto& pixel : dot.target.memory) {
        lit += pixel.c[0] == top && pixel.c[1] == top && pixel.c[2] == top;
    }
    EXPECT_GT(lit, 10);
    EXPECT_LT(lit, 200);
}

TYPED_TEST(WhiteDot, SizesWithoutAMeaningGiveADefinedPicture) {
    for (const float size : {0.0f, -20.0f, 1e12f, 1e38f}) {
        Random random(4);
        Canvas<TypeParam> picture(20, 10);
        Canvas<TypeParam> target(20, 10);
        picture.scribble(random);
        SignalParameters signal = perfectSignal(20, 10);
        signal.width = signal.height = size;
        signal.whiteDot = 0.5f;
        shrinkToDot(signal, picture.texture, target.texture, Span{2, 8}, Span{3, 9}, nullptr);
        for (int x = 0; x < 20; ++x) EXPECT_EQ(target.at(x, 1), TypeParam{});
    }
}

}  // namespace
}  // namespace ruvex::test
