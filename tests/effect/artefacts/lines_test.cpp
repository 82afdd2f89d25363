// Creeping lines, measured on the picture.

#include <algorithm>
#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>

#include "tests/effect/support/broken_signal.h"
#include "tests/effect/support/module_workers.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr double kPi = std::numbers::pi;

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
