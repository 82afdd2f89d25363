// What the tube makes of a picture, measured on the picture.

#include <array>
#include <gtest/gtest.h>

#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/broken_signal.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

template <class P>
class Tube : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Tube, FramePixels);

/// A colour in parts of white, through a set.
template <class P>
std::array<double, 3> shownAs(std::initializer_list<Setting> settings,
                              const std::array<double, 3>& parts) {
    FaultySet set(16, 12, settings);
    const double white = kWhiteOf<P>;
    const P colour =
        colourOf<P>(static_cast<int>(parts[0] * white), static_cast<int>(parts[1] * white),
                    static_cast<int>(parts[2] * white));
    const auto shown = set.frame(plain(16, 12, colour)).at(7, 5);
    return {shown.c[0] / white, shown.c[1] / white, shown.c[2] / white};
}

template <class P>
void expectShown(std::initializer_list<Setting> settings, const std::array<double, 3>& parts,
                 const std::array<double, 3>& wanted) {
    const auto shown = shownAs<P>(settings, parts);
    // Three truncations, each of which may cost a step.
    const double step = 3.0 / kWhiteOf<P>;
    for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(shown[k], wanted[k], step) << "component " << k;
}

TYPED_TEST(Tube, BlackAndWhiteShowsTheMeanOfTheColours) {
    expectShown<TypeParam>({{Id::TvType, 1}}, {0.9, 0.3, 0.15}, {0.45, 0.45, 0.45});
}

TYPED_TEST(Tube, ATintGoesThroughItsColourAtHalfLight) {
    const auto tinted = [](double light, const std::array<double, 3>& wanted) {
        expectShown<TypeParam>(
            {{Id::TvType, 2}, {Id::TintColourR, 20}, {Id::TintColourG, 70}, {Id::TintColourB, 40}},
            {light, light, light}, wanted);
    };
    tinted(0.0, {0.0, 0.0, 0.0});
    tinted(0.25, {0.1, 0.35, 0.2});
    tinted(0.5, {0.2, 0.7, 0.4});
    tinted(0.75, {0.6, 0.85, 0.7});
    tinted(1.0, {1.0, 1.0, 1.0});
}

TYPED_TEST(Tube, BrightnessLiftsTowardsWhiteAndLowersTowardsBlack) {
    expectShown<TypeParam>({{Id::TvBrightness, 40}}, {0.2, 0.5, 0.8}, {0.52, 0.7, 0.88});
    expectShown<TypeParam>({{Id::TvBrightness, -40}}, {0.2, 0.5, 0.8}, {0.12, 0.3, 0.48});
    expectShown<TypeParam>({{Id::TvBrightnessGreen, 40}}, {0.2, 0.5, 0.8}, {0.2, 0.7, 0.8});
}

TYPED_TEST(Tube, ContrastSteepensTheMiddleAndKeepsTheEnds) {
    // A quarter: each half is bent by the exponent 0.5 / 0.25.
    expectShown<TypeParam>({{Id::TvContrast, 25}}, {0.2, 0.5, 0.8}, {0.08, 0.5, 0.92});
    expectShown<TypeParam>({{Id::TvContrast, 25}}, {0.0, 0.05, 1.0}, {0.0, 0.005, 1.0});
    // At a half and above there is black and white alone.
    expectShown<TypeParam>({{Id::TvContrast, 50}}, {0.4, 0.6, 0.9}, {0.0, 1.0, 1.0});
    // Minus a quarter: the square root.
    expectShown<TypeParam>({{Id::TvContrast, -25}}, {0.08, 0.5, 0.92}, {0.2, 0.5, 0.8});
}

TYPED_TEST(Tube, ColourStretchesTheDistanceFromGrey) {
    expectShown<TypeParam>({{Id::TvColour, 0}}, {0.6, 0.3, 0.3}, {0.4, 0.4, 0.4});
    expectShown<TypeParam>({{Id::TvColour, 200}}, {0.6, 0.3, 0.3}, {0.8, 0.2, 0.2});
}

TYPED_TEST(Tube, ColourIsSwappedThenDrainedThenLost) {
    const std::array<double, 3> colour = {0.75, 0.375, 0.15};
    const auto lose = [&](double percent, const std::array<double, 3>& wanted) {
        expectShown<TypeParam>({{Id::MasterBreakup, 75},
                                {Id::ColourThreshold, 50},
                                {Id::ColourDegradeMax, 2 * percent}},
                               colour, wanted);
    };
    lose(0, {0.75, 0.375, 0.15});
    // Half way to the swap: red half way to blue, blue half way from there.
    lose(10, {0.45, 0.375, 0.3});
    // Nearly swapped, as far as the new red lets blue go.
    lose(19.999, {0.15, 0.375, 0.15});
    // A half on the way from there to grey has the weight 0.625, and grey is 0.425.
    lose(30, {0.321875, 0.40625, 0.38633});
    lose(41, {0.425, 0.425, 0.425});
}

// With the guns out of line, blue becomes what red was, and not what is left of it.
TYPED_TEST(Tube, GunsOutOfLineSwapColourWithoutLoss) {
    const auto lose = [](double percent, const std::array<double, 3>& wanted) {
        expectShown<TypeParam>({{Id::MasterBreakup, 75},
                                {Id::ColourThreshold, 50},
                                {Id::ColourDegradeMax, 2 * percent},
                                {Id::GunAlignGreenY, 2}},
                               {0.75, 0.375, 0.15}, wanted);
    };
    lose(10, {0.45, 0.375, 0.45});
    lose(19.999, {0.15, 0.375, 0.75});
    lose(30, {0.321875, 0.40625, 0.546875});
    lose(41, {0.425, 0.425, 0.425});
}

TEST(TubeGuns, EachColourIsMovedByItsOwnOffset) {
    FaultySet set(90, 60,
                  {{Id::GunAlignRedX, 10},
                   {Id::GunAlignRedY, -4},
                   {Id::GunAlignGreenY, 6},
                   {Id::GunAlignBlueX, -7.9}});
    const auto shown = set.frame(placePicture(90, 60));
    for (int y = 6; y < 56; ++y) {
        for (int x = 10; x < 82; ++x) {
            const RgbaS214& pixel = shown.at(x, y);
            ASSERT_EQ(pixel.c[0], (x - 10) + 100 * (y + 4) + 1) << x << ", " << y;
            ASSERT_EQ(pixel.c[1], x + 100 * (y - 6) + 1);
            ASSERT_EQ(pixel.c[2], (x + 7) + 100 * y + 1) << "cut to whole pixels";
            ASSERT_EQ(pixel.c[3], pixel.c[0]) << "alpha goes with red";
        }
    }
}

TEST(TubeInterference, ABandOfRowsIsBrighterOrDarkerAlongItsWholeLength) {
    constexpr int kHeight = 120, kGrey = 8000, kSeed = 9;
    FaultySet set(40, kHeight, {{Id::EmInterference, 60}, {Id::Seed, kSeed}});
    for (const int frame : {0, 7}) {
        const auto shown =
            set.frame(plain(40, kHeight, colourOf<RgbaS214>(kGrey, kGrey, kGrey)), frame);
        std::uint32_t state = static_cast<std::uint32_t>(kSeed + 20 * frame);
        const float start = uniform(state) * 100.0f;
        int brighter = 0, darker = 0;
        for (int y = 0; y < kHeight; ++y) {
            const double bar =
                noiseTable().fractalNoise(start + static_cast<float>(y) / (kHeight / 25.0f), 2);
            EXPECT_NEAR(shown.at(0, y).c[0], kGrey * (1.0 + 0.6 * bar), 2.0) << y;
            for (int x = 1; x < 40; ++x) ASSERT_EQ(shown.at(x, y), shown.at(0, y));
            brighter += shown.at(0, y).c[0] > kGrey * 1.1;
            darker += shown.at(0, y).c[0] < kGrey * 0.9;
        }
        EXPECT_GT(brighter, 10) << frame;
        EXPECT_GT(darker, 10) << frame;
    }
}

}  // namespace
}  // namespace ruvex::test
