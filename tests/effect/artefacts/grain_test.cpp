// Snow, ghosts and creeping lines, measured on the picture.

#include <algorithm>
#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>

#include "imaging/gradient_noise.h"
#include "imaging/random.h"
#include "tests/effect/support/broken_signal.h"
#include "tests/effect/support/module_workers.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr double kPi = std::numbers::pi;

template <class P>
class SnowArtefact : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(SnowArtefact, FramePixels);

/// What snow adds to a grey, in parts of white, red alone; rows one after the other.
template <class P>
std::vector<double> snowOn(double grey, std::initializer_list<Setting> settings) {
    FaultySet set(120, 90, settings);
    const int level = static_cast<int>(grey * kWhiteOf<P>);
    const auto shown = set.frame(plain(120, 90, colourOf<P>(level, level, level, level)), 3);
    std::vector<double> added;
    for (const P& pixel : shown.pixels) {
        added.push_back((pixel.c[0] - level) / double{kWhiteOf<P>});
    }
    return added;
}

double meanOf(const std::vector<double>& values) {
    double sum = 0.0;
    for (const double v : values) sum += v;
    return sum / static_cast<double>(values.size());
}
double deviationOf(const std::vector<double>& values) {
    double sum = 0.0;
    const double mean = meanOf(values);
    for (const double v : values) sum += (v - mean) * (v - mean);
    return std::sqrt(sum / static_cast<double>(values.size()));
}
/// How alike each value is to the one `step` places on, from -1 to 1.
double alikeness(const std::vector<double>& values, std::size_t step) {
    double sum = 0.0;
    const double mean = meanOf(values);
    for (std::size_t i = 0; i + step < values.size(); ++i) {
        sum += (values[i] - mean) * (values[i + step] - mean);
    }
    const double deviation = deviationOf(values);
    return sum / static_cast<double>(values.size() - step) / (deviation * deviation);
}

// Half the level above no threshold: half of the maximum. The grain is even from -a to a.
TYPED_TEST(SnowArtefact, ReachesItsAmountEvenlyOnBothSides) {
    const auto snow = snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0},
                                              {Id::SnowMax, 80},
                                              {Id::SnowSoftness, 0},
                                              {Id::SnowSparseness, 0}});
    const auto [low, high] = std::minmax_element(snow.begin(), snow.end());
    EXPECT_NEAR(*low, -0.4, 0.005);
    EXPECT_NEAR(*high, 0.4, 0.005);
    EXPECT_NEAR(meanOf(snow), 0.0, 0.01);
    EXPECT_NEAR(deviationOf(snow), 0.4 / std::sqrt(3.0), 0.01);
    EXPECT_NEAR(alikeness(snow, 1), 0.0, 0.04);
    EXPECT_NEAR(alikeness(snow, 120), 0.0, 0.04);
}

TYPED_TEST(SnowArtefact, SparsenessIsTheShareOfPixelsWithoutASpeck) {
    for (const double sparseness : {25.0, 60.0, 95.0}) {
        const auto snow = snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0},
                                                  {Id::SnowMax, 80},
                                                  {Id::SnowSoftness, 0},
                                                  {Id::SnowSparseness, sparseness}});
        // A step of the storage counts as none: what is added to it is truncated.
        const double step = 1.01 / kWhiteOf<TypeParam>;
        const auto silent =
            std::count_if(snow.begin(), snow.end(), [&](double v) { return std::fabs(v) < step; });
        EXPECT_NEAR(static_cast<double>(silent) / static_cast<double>(snow.size()),
                    sparseness / 100.0, 0.02);
        EXPECT_NEAR(*std::max_element(snow.begin(), snow.end()), 0.4, 0.02) << "as strong as ever";
    }
}

TYPED_TEST(SnowArtefact, NegativeSnowIsTheNegativeOfSnow) {
    const auto positive =
        snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0}, {Id::SnowMax, 80}, {Id::SnowSoftness, 0}});
    const auto negative =
        snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0}, {Id::SnowMax, -80}, {Id::SnowSoftness, 0}});
    for (std::size_t i = 0; i < positive.size(); ++i) {
        ASSERT_NEAR(negative[i], -positive[i], 2.0 / kWhiteOf<TypeParam>);
    }
    EXPECT_GT(deviationOf(negative), 0.1);
}

TYPED_TEST(SnowArtefact, SoftnessDrawsSpecksOutAlongTheirRowsOnly) {
    const auto soft = snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0},
                                              {Id::SnowMax, 160},
                                              {Id::SnowSoftness, 6},
                                              {Id::SnowSparseness, 0}});
    EXPECT_GT(alikeness(soft, 1), 0.6);
    EXPECT_NEAR(alikeness(soft, 15), 0.0, 0.1);
    EXPECT_NEAR(alikeness(soft, 120), 0.0, 0.06) << "the row above";
    EXPECT_NEAR(meanOf(soft), 0.0, 0.02);
}

// One ghost of one bright column: the column's copy at the other side of the offset.
TEST(GhostArtefact, TheCopyStandsAtItsDistanceWithItsWeight) {
    constexpr int kWidth = 200, kBar = 100, kDark = 4000, kBright = 6000;
    int shown = 0;
    for (int seed = 0; seed < 12; ++seed) {
        FaultySet set(kWidth, 20,
                      {{Id::Seed, static_cast<double>(seed)},
                       {Id::NumGhosts, 1},
                       {Id::GhostingThreshold, 0},
                       {Id::GhostingDistanceMax, 160},
                       {Id::GhostingStrength, 80},
                       {Id::GhostingSpeed, 0}});
        auto bar = plain(kWidth, 20, colourOf<RgbaS214>(kDark, kDark, kDark, kDark));
        for (int y = 0; y < 20; ++y) {
            bar.pixels[static_cast<std::size_t>(y * kWidth + kBar)] =
                colourOf<RgbaS214>(kBright, kBright, kBright, kBright);
        }
        auto state = static_cast<std::uint32_t>(seed);
        const float place = uniform(state) * 100.0f;
        const int offset = static_cast<int>(noiseTable().fractalNoise(place, 4) * (160 * 0.5f));
        const double weight = (uniform(state) * 2.0 - 1.0) * 0.8;
        const auto picture = set.frame(bar);
        if (offset == 0) continue;
        ++shown;
        for (int x = 30; x < kWidth - 30; ++x) {
            const double signal = x == kBar ? kBright : kDark;
            const double ghost = x + offset == kBar ? kBright : kDark;
            EXPECT_NEAR(picture.at(x, 7).c[0], signal + (signal - ghost) * weight, 1.5)
                << "column " << x << ", offset " << offset;
            EXPECT_EQ(picture.at(x, 7).c[3], picture.at(x, 7).c[0]) << "alpha as well";
        }
    }
    EXPECT_GT(shown, 8);
}

// Dots of the black-and-white set on black; one worker, which has one share.
struct Dots {
    static constexpr int kSize = 150;
    static constexpr double kSpacing = 20.0;

    explicit Dots(double angle, int frame = 0)
        : set(kSize, kSize,
              {{Id::TvType, 1},
               {Id::MasterBreakup, 75},
               {Id::LineThreshold, 50},
               {Id::LineAngle, angle},
               {Id::LineSpacing, kSpacing},
               {Id::LineSpeedMax, 100}}) {
        const ModuleWorkers one(set, 1);
        picture = set.frame(plain(kSize, kSize, RgbaS214{}), frame);
    }

    /// Where the lines stand, across them, in parts of their spacing, 0 to 1; and how sharply: 1 if
    /// every dot lies on a line.
    std::pair<double, double> phase(double angle) const {
        std::complex<double> sum = 0.0;
        int dots = 0;
        const double a = angle * kPi / 180.0;
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                if (picture.at(x, y).c[0] == 0) continue;
                const double across = x * std::sin(a) - y * std::cos(a);
                sum += std::polar(1.0, across / kSpacing * 2.0 * kPi);
                ++dots;
            }
        }
        return {std::arg(sum) / (2.0 * kPi), std::abs(sum) / dots};
    }

    FaultySet set;
    Picture<RgbaS214> picture;
};

TEST(LineArtefact, DotsLieOnLinesAtTheirAngleAndSpacing) {
    for (const double angle : {20.0, 70.0, 110.0, 200.0, 305.0}) {
        const Dots dots(angle);
        EXPECT_GT(dots.phase(angle).second, 0.95) << angle;
        EXPECT_LT(dots.phase(angle + 12.0).second, 0.4) << "and on no others";
    }
}

// The length of all lines is the picture's area over their spacing; a dot stands for three steps of
// the longer axis.
TEST(LineArtefact, ThereIsADotForEveryThirdStep) {
    for (const double angle : {20.0, 70.0, 110.0}) {
        const double a = angle * kPi / 180.0;
        const double longer = std::max(std::fabs(std::sin(a)), std::fabs(std::cos(a)));
        const double wanted = Dots::kSize * Dots::kSize / Dots::kSpacing * longer / 3.0;
        const Dots dots(angle);
        const auto lit = std::count_if(dots.picture.pixels.begin(), dots.picture.pixels.end(),
                                       [](const RgbaS214& pixel) { return pixel.c[0] != 0; });
        EXPECT_NEAR(static_cast<double>(lit), wanted, wanted * 0.15) << angle;
    }
}

// At half strength a dot takes a black pixel a quarter to half of the way to white.
TEST(LineArtefact, DotsAreAsBrightAsTheLevelSays) {
    const Dots dots(70.0);
    int darkest = 32767, brightest = 0;
    for (const RgbaS214& pixel : dots.picture.pixels) {
        if (pixel.c[0] == 0) continue;
        darkest = std::min<int>(darkest, pixel.c[0]);
        brightest = std::max<int>(brightest, pixel.c[0]);
        EXPECT_EQ(pixel.c[3], pixel.c[0]) << "alpha as well";
    }
    EXPECT_NEAR(darkest, 0.25 * 16384, 250);
    EXPECT_NEAR(brightest, 0.5 * 16384, 250);
}

// Two pixels a frame at half of 100 a second, across the lines; the other way in the lower half
// turn.
TEST(LineArtefact, LinesCreepAcrossThemselvesAtTheirSpeed) {
    for (const double angle : {20.0, 70.0, 110.0, 160.0, 200.0, 305.0}) {
        const Dots dots(angle), later(angle, 3);
        double moved = later.phase(angle).first - dots.phase(angle).first;
        moved -= std::round(moved);
        // `across` turns about with the line, and so does the creep.
        EXPECT_NEAR(std::fabs(moved), 6.0 / Dots::kSpacing, 0.02) << angle;
        EXPECT_LT(moved, 0.0) << angle;
    }
}

}  // namespace
}  // namespace ruvex::test
