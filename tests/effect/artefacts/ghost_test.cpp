// Ghosts, measured on the picture.

#include <gtest/gtest.h>

#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/broken_signal.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

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

}  // namespace
}  // namespace ruvex::test
