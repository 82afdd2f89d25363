// A set that is switched off, measured on the picture.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "tests/effect/support/broken_signal.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

template <class P>
class DotArtefact : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(DotArtefact, FramePixels);

/// What is left of a length at a part of the way to the dot.
double left(double exponent) {
    return std::exp(exponent) + 0.005;
}

constexpr int kWide = 400, kHigh = 300;

template <class P>
Picture<P> dotPicture(double percent, int level) {
    FaultySet set(kWide, kHigh, {{Id::WhiteDot, percent}});
    return set.frame(plain(kWide, kHigh, colourOf<P>(level, level, level, level)));
}

template <class P>
std::pair<int, int> litColumns(const Picture<P>& picture, int y, int limit) {
    int first = kWide, end = 0;
    for (int x = 0; x < kWide; ++x) {
        if (picture.at(x, y).c[0] < limit) continue;
        first = std::min(first, x);
        end = x + 1;
    }
    return {first, end};
}

// The halo makes edges soft; half of the light is where the edge was.
TYPED_TEST(DotArtefact, ThePictureFallsInToATrapezium) {
    const int level = kWhiteOf<TypeParam> / 25;
    for (const double part : {0.04, 0.1, 0.2}) {
        const auto picture = dotPicture<TypeParam>(part * 100, level);
        const double high = kHigh * left(-15.0 * part);
        const double bottom = (kHigh - high) / 2, top = (kHigh + high) / 2;
        for (int y = 0; y < kHigh; ++y) {
            const int half = (picture.at(kWide / 2, y).c[0] + 1) / 2;
            const auto [first, end] = litColumns(picture, y, std::max(half, 1));
            if (y < bottom - 2 || y > top + 1) {
                EXPECT_EQ(end, 0) << y;
            }
            if (y < bottom + 1 || y > top - 2) continue;
            const double tilt = (top - y) / (top - bottom) / 10.0;
            const double wide = kWide * left(-5.0 * (part + tilt));
            EXPECT_NEAR(first, (kWide - wide) / 2, 2.0) << part << ", row " << y;
            EXPECT_NEAR(end, (kWide + wide) / 2, 2.0) << part << ", row " << y;
        }
    }
}

// As many pixels as fall together, over what is left of their width.
TYPED_TEST(DotArtefact, TheSameLightFallsOnLessGlass) {
    const int level = kWhiteOf<TypeParam> / 25;
    for (const double part : {0.04, 0.1, 0.16}) {
        const auto picture = dotPicture<TypeParam>(part * 100, level);
        const int y = kHigh / 2;
        const double shrink = left(-5.0 * (part + 0.05));
        const double wanted = std::ceil(1.0 / shrink) * level / shrink;
        EXPECT_NEAR(picture.at(kWide / 2, y).c[0], wanted, 0.02 * wanted + 2.0) << part;
        EXPECT_EQ(picture.at(kWide / 2, y).c[3], 0);
    }
}

TYPED_TEST(DotArtefact, AtTheEndAWhiteSpeckIsLeftWithAHalo) {
    for (const double part : {0.5, 0.9}) {
        const auto picture = dotPicture<TypeParam>(part * 100, kWhiteOf<TypeParam> / 10);
        const double glow = 5.0 * part;
        const double high = kHigh * left(-15.0 * part), wide = kWide * left(-5.0 * part);
        int lit = 0, beyond = 0;
        for (int y = 0; y < kHigh; ++y) {
            for (int x = 0; x < kWide; ++x) {
                if (picture.at(x, y).c[0] == 0) continue;
                ++lit;
                const double dx = std::fabs(x + 0.5 - kWide / 2.0) - wide / 2;
                const double dy = std::fabs(y + 0.5 - kHigh / 2.0) - high / 2;
                EXPECT_LE(dx, glow + 1.5) << part;
                EXPECT_LE(dy, glow + 1.5) << part;
                beyond += dy > 1.0;
            }
        }
        EXPECT_GT(lit, 0) << part;
        EXPECT_GT(beyond, 0) << "a halo";
        EXPECT_LT(lit, (wide + 2 * glow + 3) * (high + 2 * glow + 3));
    }
}

}  // namespace
}  // namespace ruvex::test
