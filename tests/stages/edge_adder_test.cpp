#include "stages/edge_adder.h"

#include <cmath>
#include <gtest/gtest.h>

#include "imaging/maths/random.h"
#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex::test {
namespace {

template <class P>
class Border : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Border, FramePixels);

// A padded picture: `width` by `height` with margins around it, addressed from minus the margins.
template <class P>
struct Padded {
    Padded(int width, int height, int marginX, int marginY)
        : canvas(width + 2 * marginX, height + 2 * marginY), mx(marginX), my(marginY) {
        for (P& pixel : canvas.memory) pixel = {{9, 9, 9, 9}};
        canvas.texture.setOrigin(-marginX, -marginY);
        canvas.texture.x.offset = -marginX;
        canvas.texture.y.offset = -marginY;
        adder.left = -marginX;
        adder.right = width + marginX;
        adder.top = -marginY;
        adder.bottom = height + marginY;
        adder.noiseTable = &noiseTable();
        adder.seed = 5;
        adder.sourceFrame = 3;
    }
    const P& at(int x, int y) { return canvas.at(x + mx, y + my); }

    Canvas<P> canvas;
    int mx, my;
    EdgeAdder<P> adder;
};

TYPED_TEST(Border, WithoutMarginsNothingIsPainted) {
    Padded<TypeParam> picture(6, 5, 0, 0);
    const auto before = picture.canvas.memory;
    picture.adder.process(picture.canvas.texture);
    EXPECT_EQ(firstDifference(picture.canvas.memory, before), "");
}

TYPED_TEST(Border, AMarginOfOneLeavesThePictureAlone) {
    for (const int alpha : {0, 1, 2}) {
        Padded<TypeParam> picture(6, 5, 1, 1);
        picture.adder.borderAlpha = BorderAlpha{alpha};
        picture.adder.process(picture.canvas.texture);
        for (int y = 0; y < 5; ++y) {
            for (int x = 0; x < 6; ++x) {
                EXPECT_EQ(picture.at(x, y), (TypeParam{{9, 9, 9, 9}})) << x << ", " << y;
            }
        }
    }
}

TYPED_TEST(Border, AFullBorderIsOpaqueEvenWhereItsNoiseIsSilent) {
    constexpr auto kWhite = PixelTraits<TypeParam>::kWhite;
    Padded<TypeParam> picture(50, 40, 10, 10);
    picture.adder.borderAlpha = BorderAlpha::Full;
    picture.adder.process(picture.canvas.texture);
    for (int y = -10; y < 50; ++y) {
        const bool band = y < 0 || y >= 40;
        for (int x = -10; x < 60; ++x) {
            const bool bar = x < -5 || x >= 55;
            if (!band && !bar) continue;
            EXPECT_EQ(picture.at(x, y).c[3], kWhite) << x << ", " << y;
        }
    }
}

TYPED_TEST(Border, ABandedBorderIsAsOpaqueAsItIsBright) {
    Padded<TypeParam> picture(50, 40, 10, 10);
    picture.adder.borderAlpha = BorderAlpha::Banded;
    picture.adder.process(picture.canvas.texture);
    int specks = 0;
    int whites = 0;
    for (int y = -10; y < 50; ++y) {
        const bool band = y < 0 || y >= 40;
        for (int x = -10; x < 60; ++x) {
            const bool bar = x < -5 || x >= 55;
            if (!band && !bar) continue;
            const TypeParam& pixel = picture.at(x, y);
            EXPECT_EQ(pixel.c[3], pixel.c[0]) << x << ", " << y;
            EXPECT_EQ(pixel.c[3], pixel.c[1]);
            specks += !bar && pixel.c[3] != 0;
            whites += bar && pixel.c[3] != 0;
        }
    }
    EXPECT_GT(specks, 20);
    EXPECT_EQ(whites, 60 * 4) << "two pulses a tenth of the margin wide on each side";
}

TYPED_TEST(Border, NoAlphaMeansNone) {
    Padded<TypeParam> picture(50, 40, 10, 10);
    picture.adder.process(picture.canvas.texture);
    for (int y = -10; y < 50; ++y) {
        for (const int x : {-10, -8, -7, -6, 55, 56, 57, 59}) EXPECT_EQ(picture.at(x, y).c[3], 0);
    }
}

TYPED_TEST(Border, DeepNegativeNoiseIsBlackAndClear) {
    Workers one(1);
    Padded<TypeParam> picture(200, 10, 0, 10);
    picture.adder.borderAlpha = BorderAlpha::Banded;
    picture.adder.process(picture.canvas.texture);
    // The first noise row, with the noise worked out again.
    std::uint32_t state = 3 * 100 + 5;
    const float start = uniform(state) * 1000.0f;
    int deep = 0;
    for (int x = 0; x < 200; ++x) {
        const float f =
            noiseTable().fractalNoise(static_cast<float>(x) * 50.0f / 200.0f + start, 8);
        if (!(f < -0.2f)) continue;
        ++deep;
        EXPECT_EQ(picture.at(x, -10), TypeParam{}) << x;
    }
    EXPECT_GT(deep, 5);
}

TYPED_TEST(Border, BetweenTheNoiseAndThePictureLieBlackRows) {
    Padded<TypeParam> picture(50, 40, 0, 10);
    picture.adder.process(picture.canvas.texture);
    for (int x = 0; x < 50; ++x) {
        for (int y = -6; y < 0; ++y) EXPECT_EQ(picture.at(x, y), TypeParam{});
        for (int y = 40; y < 46; ++y) EXPECT_EQ(picture.at(x, y), TypeParam{});
        EXPECT_EQ(picture.at(x, 0), (TypeParam{{9, 9, 9, 9}}));
        EXPECT_EQ(picture.at(x, 39), (TypeParam{{9, 9, 9, 9}}));
    }
}

}  // namespace
}  // namespace ruvex::test
