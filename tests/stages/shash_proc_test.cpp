#include "stages/shash_proc.h"

#include <cmath>
#include <gtest/gtest.h>

#include "imaging/maths/random.h"
#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class Shash : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Shash, FramePixels);

enum Type { kGrain, kBars, kDashes, kSnow, kStreaks, kNothing };

template <class P>
struct Pattern {
    Pattern(int width, int height, int type) : canvas(width, height) {
        for (P& pixel : canvas.memory) pixel = {{7, 7, 7, 7}};
        proc.noiseTable = &noiseTable();
        proc.seed = 5;
        proc.outputFrame = 12;
        proc.type = ShashType{type};
    }
    Canvas<P>& draw() {
        proc.process(canvas.texture);
        return canvas;
    }
    Canvas<P> canvas;
    VxShashProc<P> proc;
};

template <class P>
std::vector<P> fullShash(int type, int period, int framesOn, std::uint32_t seed = 5) {
    Television<P> set(48, 32);
    set.signal.seed = static_cast<std::int32_t>(seed);
    set.signal.breakup = 1.0f;
    set.signal.shashThreshold = 0.0f;
    set.signal.shashAmountMax = 1.0f;
    set.signal.shashType = ShashType{type};
    set.signal.shashPeriod = period;
    set.signal.shashFramesOn = framesOn;
    set.signal.outputFrame = 12;
    return set.run().target.memory;
}

// The picture's pixels alone, without what lies around it.
template <class P>
std::vector<P> inside(const std::vector<P>& memory) {
    std::vector<P> pixels;
    for (std::size_t y = 1; y <= 32; ++y) {
        const auto row = memory.begin() + static_cast<std::ptrdiff_t>(y * 50);
        pixels.insert(pixels.end(), row, row + 48);
    }
    return pixels;
}

TYPED_TEST(Shash, AFullShashIsThePatternItself) {
    for (int type = kGrain; type <= kStreaks; ++type) {
        Pattern<TypeParam> pattern(48, 32, type);
        for (auto& pixel : pattern.canvas.memory) pixel = {};
        const auto got = inside(fullShash<TypeParam>(type, 5, 0));
        EXPECT_EQ(firstDifference(got, inside(pattern.draw().memory)), "") << type;
    }
}

TYPED_TEST(Shash, RandomWithoutAPeriodIsAlwaysTheFirstType) {
    for (const int framesOn : {0, 1, 77}) {
        EXPECT_EQ(inside(fullShash<TypeParam>(5, 0, framesOn)),
                  inside(fullShash<TypeParam>(kGrain, 0, framesOn)));
    }
}

TYPED_TEST(Shash, RandomPicksByTheSeedAndThePeriodsThatHavePassed) {
    for (const std::uint32_t seed : {0u, 5u, 9u}) {
        for (const int framesOn : {0, 11, 12, 40}) {
            std::uint32_t state = static_cast<std::uint32_t>(framesOn / 12) + seed;
            const int wanted = static_cast<int>(uniform(state) * 5.0f);
            EXPECT_EQ(inside(fullShash<TypeParam>(5, 12, framesOn, seed)),
                      inside(fullShash<TypeParam>(wanted, 12, framesOn, seed)))
                << seed << ", " << framesOn;
        }
    }
}

TYPED_TEST(Shash, ASixthTypeDrawsNothing) {
    Pattern<TypeParam> pattern(20, 10, kNothing);
    const auto before = pattern.canvas.memory;
    EXPECT_EQ(firstDifference(pattern.draw().memory, before), "");
}

TYPED_TEST(Shash, DashesWithoutALengthChangeAtEveryPixel) {
    Workers one(1);
    Pattern<TypeParam> pattern(400, 1, kDashes);
    pattern.proc.scaleA = 0.05f;
    pattern.draw();
    std::uint32_t state = 12 * 100 + 5;
    const float shift = uniform(state) * 100.0f;
    const float cell = 0.05f * 10.0f * 1.0f;
    const TypeParam white = [] {
        const auto top = static_cast<typename TypeParam::Component>(PixelTraits<TypeParam>::kTop);
        return TypeParam{{top, top, top, top}};
    }();
    const auto lit = [&](int x) {
        const float f =
            std::fabs(noiseTable().fractalNoise(static_cast<float>(x) / cell + shift, 2));
        return f > 0.15f;
    };
    int pairs = 0;
    for (int x = 0; x + 1 < 400; ++x) {
        const TypeParam& a = pattern.canvas.at(x, 0);
        if (!lit(x) || !lit(x + 1) || a == white) continue;
        ++pairs;
        EXPECT_FALSE(a == pattern.canvas.at(x + 1, 0)) << x;
    }
    EXPECT_GT(pairs, 20);
}

TYPED_TEST(Shash, NoScaleGivesADefinedPicture) {
    for (int type = kGrain; type <= kStreaks; ++type) {
        const auto draw = [&] {
            Pattern<TypeParam> pattern(30, 20, type);
            pattern.proc.scaleA = 0.0f;
            return pattern.draw().memory;
        };
        EXPECT_EQ(draw(), draw()) << type;
    }
}

TYPED_TEST(Shash, BarsHaveAFringeThatWrapsInEightBitsAlone) {
    Workers one(1);
    Pattern<TypeParam> pattern(3000, 1, kBars);
    pattern.draw();
    std::uint32_t running = 12 * 100 + 5;
    const float shift = uniform(running) * 100.0f;
    int fringes = 0;
    for (int x = 0; x < 3000; ++x) {
        const float f =
            std::fabs(noiseTable().fractalNoise(static_cast<float>(x) / 50.0f + shift, 3));
        if (!(f > 0.305f && f < 0.306f)) continue;
        ++fringes;
        // A row with an even number has grains alone.
        const TypeParam& pixel = pattern.canvas.at(x, 0);
        if (sizeof(TypeParam) == 4) {
            EXPECT_NEAR(pixel.c[0], 103, 2);
            EXPECT_EQ(pixel.c[3], pixel.c[0]);
        } else {
            EXPECT_EQ(pixel.c[0], 0);
            EXPECT_NEAR(pixel.c[3], -0.6 * 32767, 200) << "alpha keeps a value below black";
        }
    }
    EXPECT_GT(fringes, 0);
}

TYPED_TEST(Shash, GreySnowIsNeverBrighterThanNineTenthsAndHasNoAlpha) {
    Pattern<TypeParam> pattern(100, 100, kSnow);
    pattern.draw();
    int brightest = 0;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x) {
            const TypeParam& p = pattern.canvas.at(x, y);
            ASSERT_TRUE(p.c[0] == p.c[1] && p.c[1] == p.c[2] && p.c[3] == 0);
            brightest = std::max<int>(brightest, p.c[0]);
        }
    }
    EXPECT_LE(brightest, kWhiteOf<TypeParam> * 0.9);
    EXPECT_GT(brightest, kWhiteOf<TypeParam> * 0.89);
}

}  // namespace
}  // namespace ruvex::test
