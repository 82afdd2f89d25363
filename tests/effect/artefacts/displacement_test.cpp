// A picture that is displaced: edges, offset, roll, and the border that comes into view. Each is
// measured by reading from the picture where its pixels come from.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/broken_signal.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr int kWidth = 84;
constexpr int kHeight = 60;
constexpr int kMarginX = kWidth / 7;
constexpr int kMarginY = kHeight / 10;
constexpr int kLoop = kHeight + 2 * kMarginY;

int rowOf(const RgbaS214& pixel) {
    return (pixel.c[0] - 1) / 100;
}
int columnOf(const RgbaS214& pixel) {
    return (pixel.c[0] - 1) % 100;
}

TEST(EdgeArtefact, EachRowIsPulledByTheNoiseUnderAnEnvelope) {
    constexpr int kSeed = 12;
    constexpr float kJaggedness = 3.0f;
    FaultySet set(kWidth, kHeight,
                  {{Id::EdgeThreshold, 0},
                   {Id::EdgeDistortionMax, 80},
                   {Id::EdgeJaggedness, kJaggedness},
                   {Id::EdgeSpeed, 0},
                   {Id::Seed, kSeed}});
    std::uint32_t state = kSeed;
    const float phase = uniform(state) * 100.0f;
    const auto shown = set.frame(placePicture(kWidth, kHeight));
    int furthest = 0;
    for (int y = 0; y < kHeight; ++y) {
        const double n =
            noiseTable().fractalNoise(static_cast<float>(y) * kJaggedness / kHeight + phase, 8);
        const double envelope = std::min(3.0 * std::sin(y * std::numbers::pi / kHeight), 1.0);
        const double pulled = std::fabs(n) * envelope * (0.5 * 80);
        const int shift = columnOf(shown.at(0, y));
        EXPECT_EQ(rowOf(shown.at(0, y)), y);
        EXPECT_GE(shift, pulled - 1.01) << y;
        EXPECT_LE(shift, pulled + 0.01) << y;
        // All of the row alike, up to its end, where the border shows.
        for (int x = 0; x + shift < kWidth; ++x) ASSERT_EQ(columnOf(shown.at(x, y)), x + shift);
        furthest = std::max(furthest, shift);
    }
    EXPECT_EQ(columnOf(shown.at(0, 0)), 0) << "the first row holds";
    EXPECT_GT(furthest, 10);
}

TEST(VerticalArtefact, ThePictureHangsByItsOffset) {
    for (const int most : {40, -40}) {
        FaultySet set(kWidth, kHeight,
                      {{Id::MasterBreakup, 75},
                       {Id::VertOffsetThreshold, 50},
                       {Id::VertOffsetMax, static_cast<double>(most)}});
        const auto shown = set.frame(placePicture(kWidth, kHeight));
        const int offset = most / 2;
        for (int y = std::max(offset, 0); y < kHeight + std::min(offset, 0); ++y) {
            EXPECT_EQ(rowOf(shown.at(40, y)), y - offset);
        }
    }
}

// Ten rows a frame at full speed; the level is half way from the threshold.
TEST(VerticalArtefact, ThePictureRollsThroughItsBorderByItsSpeed) {
    FaultySet set(kWidth, kHeight,
                  {{Id::MasterBreakup, 100},
                   {Id::VertOffsetMax, 0},
                   {Id::VertRollThreshold, 0},
                   {Id::VertRollSpeedMax, 250}});
    for (int frame = 0; frame < 12; ++frame) {
        const auto shown = set.frame(placePicture(kWidth, kHeight), frame);
        int rows = 0;
        for (int y = 0; y < kHeight; ++y) {
            const int from = ((y - 10 * frame) % kLoop + kLoop) % kLoop;
            if (from >= kHeight) continue;
            ++rows;
            ASSERT_EQ(rowOf(shown.at(40, y)), from) << "frame " << frame << ", row " << y;
        }
        EXPECT_GE(rows, kHeight - 2 * kMarginY);
    }
}

template <class P>
class BorderArtefact : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(BorderArtefact, FramePixels);

/// How much of the noise lies above a fifth, where it shows as a speck.
double shareAboveAFifth() {
    constexpr int kSamples = 100000;
    int above = 0;
    for (int i = 0; i < kSamples; ++i) {
        above += noiseTable().fractalNoise(static_cast<float>(i) * 0.0137f, 8) > 0.2f;
    }
    return above / double{kSamples};
}

// The picture hangs by half its height; what is seen between its end and its beginning are two
// margins: noise, then black, on either side of the seam.
TYPED_TEST(BorderArtefact, TwoMarginsLieBetweenTheEndAndTheBeginning) {
    constexpr int kWide = 420, kHigh = 200, kMargin = kHigh / 10, kNoise = kMargin * 4 / 10;
    FaultySet set(
        kWide, kHigh,
        {{Id::MasterBreakup, 100}, {Id::VertOffsetThreshold, 0}, {Id::VertOffsetMax, 100}});
    const int white = kWhiteOf<TypeParam>;
    const auto shown = set.frame(plain(kWide, kHigh, colourOf<TypeParam>(white, 0, white)));
    int allSpecks = 0;
    for (int y = 0; y < kHigh; ++y) {
        const int below = 100 - 1 - y;  // rows under the picture's first
        int picture = 0, specks = 0;
        for (int x = 0; x < kWide; ++x) {
            const TypeParam& pixel = shown.at(x, y);
            picture += pixel.c[0] == white && pixel.c[1] == 0;
            specks += pixel.c[1] != 0;
        }
        const bool margin = below >= 0 && below < 2 * kMargin;
        const bool noise = below >= kMargin - kNoise && below < kMargin + kNoise;
        EXPECT_EQ(picture, margin ? 0 : kWide) << y;
        EXPECT_EQ(specks > 0, noise) << y;
        allSpecks += specks;
    }
    EXPECT_NEAR(allSpecks / (2.0 * kNoise * kWide), shareAboveAFifth(), 0.03);
}

// Red moved by a whole margin: at the left stands what lies there, and alpha goes with it.
TYPED_TEST(BorderArtefact, TwoSyncPulsesStandAtEachSide) {
    constexpr int kWide = 350, kMargin = kWide / 7;
    for (const int border : {0, 1, 2}) {
        FaultySet set(
            kWide, 40,
            {{Id::GunAlignRedX, kMargin}, {Id::BorderAlpha, static_cast<double>(border)}});
        const auto shown = set.frame(plain(kWide, 40, colourOf<TypeParam>(90, 90, 90, 77)));
        const int white = kWhiteOf<TypeParam>;
        for (int x = 0; x < kMargin; ++x) {
            const int tenth = x * 10 / kMargin;
            const bool pulse = tenth == 2 || tenth == 4;
            const TypeParam& pixel = shown.at(x, 20);
            EXPECT_EQ(pixel.c[0], pulse ? white : 0) << x;
            const int alpha = tenth >= 5 || border == 0 ? 0 : border == 1 || pulse ? white : 0;
            EXPECT_EQ(pixel.c[3], alpha) << x << ", border " << border;
        }
        EXPECT_EQ(shown.at(kMargin, 20).c[3], 77);
    }
}

}  // namespace
}  // namespace ruvex::test
