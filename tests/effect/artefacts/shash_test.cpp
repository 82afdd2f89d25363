// A set without a signal, measured on the picture.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <set>

#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/broken_signal.h"
#include "tests/effect/support/module_workers.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

template <class P>
class ShashArtefact : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(ShashArtefact, FramePixels);

constexpr int kSide = 300;

/// Shash over a plain picture, at an amount of `percent`.
template <class P>
Picture<P> shashPicture(int type, double percent = 100, int frame = 3, const P& under = P{}) {
    FaultySet set(kSide, kSide,
                  {{Id::MasterBreakup, percent},
                   {Id::ShashThreshold, 0},
                   {Id::ShashPeriod, 0.2},
                   {Id::ShashType, static_cast<double>(type)}});
    const ModuleWorkers one(set, 1);
    return set.frame(plain(kSide, kSide, under), frame);
}

/// The white of a pattern is the top of the storage.
template <class P>
constexpr int kShashWhite = sizeof(P) == 4 ? 255 : 32767;

template <class P, class Test>
double shareOf(const Picture<P>& picture, Test test) {
    return static_cast<double>(std::count_if(picture.pixels.begin(), picture.pixels.end(), test)) /
           static_cast<double>(picture.pixels.size());
}

/// How often the mean of four sines of any phases is beyond `limit`.
double shareOfSines(double limit) {
    constexpr int kPhases = 36;
    std::vector<double> sine;
    for (int i = 0; i < kPhases; ++i) {
        sine.push_back(std::sin((i + 0.37) * 2.0 * std::numbers::pi / kPhases));
    }
    int beyond = 0;
    for (const double a : sine) {
        for (const double b : sine) {
            for (const double c : sine) {
                for (const double d : sine) beyond += std::fabs(a + b + c + d) > 4.0 * limit;
            }
        }
    }
    return beyond / std::pow(kPhases, 4);
}

/// How often the noise is beyond `limit` on either side.
double shareOfNoise(int octaves, float limit) {
    constexpr int kSamples = 200000;
    int beyond = 0;
    for (int i = 0; i < kSamples; ++i) {
        const float x = static_cast<float>(i) * 0.0137f;
        beyond += std::fabs(noiseTable().fractalNoise(x, octaves)) > limit;
    }
    return beyond / double{kSamples};
}

TYPED_TEST(ShashArtefact, TheFirstTypeIsWhiteWhereFourSinesMeet) {
    const auto picture = shashPicture<TypeParam>(0);
    EXPECT_NEAR(shareOf(picture, [](const auto& p) { return p.c[0] == kShashWhite<TypeParam>; }),
                shareOfSines(0.44), 0.04);
    EXPECT_NEAR(shareOf(picture, [](const auto& p) { return p.c[0] != 0; }), shareOfSines(0.418),
                0.04);
    for (const auto& p : picture.pixels) {
        ASSERT_TRUE(p.c[0] == p.c[1] && p.c[1] == p.c[2] && p.c[2] == p.c[3]);
    }
}

TYPED_TEST(ShashArtefact, TheSecondTypeHasWavesOnOddRowsUnderItsGrains) {
    const auto picture = shashPicture<TypeParam>(1);
    int waves = 0;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const TypeParam& p = picture.at(x, y);
            if (p.c[3] != 0) continue;  // a grain
            if (y % 2 == 0) {
                ASSERT_EQ(p, TypeParam{}) << x << ", " << y;
                continue;
            }
            waves += p.c[0] != 0;
            ASSERT_LE(p.c[0], 0.7001 * kShashWhite<TypeParam>);
            // Rows 5 to 11 of each sixteen have the same two waves.
            if (y % 16 < 5 || y % 16 >= 11 || picture.at(x, y + 2).c[3] != 0) continue;
            ASSERT_EQ(p.c[0], picture.at(x, y + 2).c[0]) << x << ", " << y;
        }
    }
    EXPECT_GT(waves, kSide * kSide / 8);
    EXPECT_NEAR(shareOf(picture, [](const auto& p) { return p.c[3] != 0; }),
                shareOfNoise(3, 0.305f), 0.02);
}

TYPED_TEST(ShashArtefact, TheThirdTypeHasThreeWhiteDashesInTen) {
    const auto picture = shashPicture<TypeParam>(2);
    EXPECT_NEAR(shareOf(picture, [](const auto& p) { return p.c[0] + p.c[1] + p.c[2] != 0; }),
                shareOfNoise(2, 0.12f), 0.03);
    int whites = 0, dashes = 0;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 1; x < kSide; ++x) {
            const TypeParam& p = picture.at(x, y);
            if (p == picture.at(x - 1, y)) continue;
            const bool white =
                p.c[0] == kShashWhite<TypeParam> && p.c[1] == p.c[0] && p.c[2] == p.c[0];
            // A whole dash's colour is seen again in the next pixel.
            if (x + 1 == kSide || p != picture.at(x + 1, y)) continue;
            if (p.c[0] + p.c[1] + p.c[2] == 0) continue;
            ++dashes;
            whites += white;
        }
    }
    EXPECT_NEAR(whites / double(dashes), 0.3, 0.04);
}

TYPED_TEST(ShashArtefact, TheFourthTypeIsEvenUpToNineTenths) {
    const auto picture = shashPicture<TypeParam>(3);
    const double white = kWhiteOf<TypeParam>;
    for (const double part : {0.1, 0.3, 0.6, 0.8}) {
        EXPECT_NEAR(shareOf(picture, [&](const auto& p) { return p.c[0] < part * white; }),
                    part / 0.9, 0.012);
    }
    EXPECT_EQ(shareOf(picture, [&](const auto& p) { return p.c[0] > 0.9 * white; }), 0.0);
    EXPECT_EQ(shareOf(picture, [](const auto& p) { return p.c[3] != 0; }), 0.0);
}

/// How much of even noise from -reach to reach lies above `limit` once it is softened along its
/// row: by three boxes, each of a pixel and a part of its neighbours, a third of `softness`.
double shareOfSoftNoiseAbove(double limit, double reach, double softness) {
    std::vector<double> noise(100000);
    Random random(1);
    for (double& v : noise) v = reach * random.real(-1.0f, 1.0f);
    const double part = softness / 3.0;
    for (int box = 0; box < 3; ++box) {
        const std::vector<double> before = noise;
        for (std::size_t i = 1; i + 1 < noise.size(); ++i) {
            noise[i] = (before[i] + part * (before[i - 1] + before[i + 1])) / (1.0 + 2.0 * part);
        }
    }
    return static_cast<double>(
               std::count_if(noise.begin(), noise.end(), [&](double v) { return v >= limit; })) /
           static_cast<double>(noise.size());
}

TYPED_TEST(ShashArtefact, TheFifthTypeIsHalfBlackAndClipped) {
    const auto picture = shashPicture<TypeParam>(4);
    const double white = kWhiteOf<TypeParam>;
    EXPECT_NEAR(shareOf(picture, [](const auto& p) { return p.c[0] == 0; }), 0.5, 0.02);
    EXPECT_NEAR(shareOf(picture, [&](const auto& p) { return p.c[0] >= white; }),
                shareOfSoftNoiseAbove(1.0, 1.32, 0.1), 0.01);
    int most = 0;
    for (const auto& p : picture.pixels) most = std::max<int>(most, p.c[0]);
    EXPECT_NEAR(most / white, sizeof(TypeParam) == 4 ? 1.0 : 1.32, 0.02);
}

TYPED_TEST(ShashArtefact, ThePatternIsMixedInByItsAmount) {
    const int grey = kWhiteOf<TypeParam> / 2;
    const auto under = colourOf<TypeParam>(grey, grey / 2, grey / 4, grey);
    for (int type = 0; type < 5; ++type) {
        const auto pattern = shashPicture<TypeParam>(type);
        const auto mixed = shashPicture<TypeParam>(type, 30, 3, under);
        for (std::size_t i = 0; i < pattern.pixels.size(); ++i) {
            const TypeParam& p = mixed.pixels[i];
            for (int k = 0; k < 4; ++k) {
                // The soft edge of a dash has the picture's own alpha.
                if (k == 3 && type == 2 && p.c[k] == under.c[k]) continue;
                ASSERT_NEAR(p.c[k], 0.7 * under.c[k] + 0.3 * pattern.pixels[i].c[k], 1.001)
                    << type << " " << i;
            }
        }
    }
}

TEST(ShashSchedule, RandomShowsOneTypeAPeriodAndAllOfThemInTime) {
    std::set<int> seen;
    int last = -1;
    for (int frame = 0; frame < 100; ++frame) {
        // Five frames are a period.
        const bool begins = frame % 5 == 0;
        if (!begins && frame % 5 != 3) continue;
        const auto picture = shashPicture<Rgba8>(5, 100, frame);
        const auto shows = [&](int type) {
            return picture == shashPicture<Rgba8>(type, 100, frame);
        };
        if (begins) {
            last = -1;
            for (int type = 0; type < 5 && last < 0; ++type) last = shows(type) ? type : -1;
            EXPECT_GE(last, 0) << frame;
            seen.insert(last);
        } else {
            EXPECT_TRUE(shows(last)) << frame;
        }
        if (seen.size() == 5 && !begins) break;
    }
    EXPECT_EQ(seen.size(), 5u);
}

}  // namespace
}  // namespace ruvex::test
