// A recorder that winds, plays slowly or stands, measured on the picture.

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/broken_signal.h"
#include "tests/effect/support/module_workers.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr int kTapeWidth = 300;
constexpr int kTapeHeight = 500;
constexpr int kRed = 2000;
constexpr int kBlue = 10000;

/// Green says the column.
Picture<RgbaS214> columnPicture() {
    Picture<RgbaS214> picture{kTapeWidth, kTapeHeight, {}};
    for (int i = 0; i < kTapeWidth * kTapeHeight; ++i) {
        picture.pixels.push_back(colourOf<RgbaS214>(kRed, i % kTapeWidth, kBlue, 500));
    }
    return picture;
}

/// The same picture at all times.
class StillClip final : public runtime::InputProvider {
public:
    explicit StillClip(Picture<RgbaS214> picture) : picture_(std::move(picture)) {}
    ComPtr<IDSImage> imageAt(double) override {
        return imageOf({.width = picture_.width, .height = picture_.height}, picture_);
    }

private:
    Picture<RgbaS214> picture_;
};

/// A frame of a still picture on a player, its rows in one share.
Picture<RgbaS214> played(const Picture<RgbaS214>& still, double speed, int frame,
                         bool dvd = false) {
    FaultySet set(still.width, still.height,
                  {{Id::PlaySpeed, speed}, {Id::PlayMode, dvd ? 1.0 : 0.0}},
                  std::make_shared<StillClip>(still));
    const ModuleWorkers one(set, 1);
    return set.frame(still, frame);
}

/// A row's commonest red, and the commonest distance from which its pixels are read.
struct Row {
    int red;
    int shift;
    bool even;  ///< whether all columns agree
};

Row rowOf(const Picture<RgbaS214>& picture, int y) {
    std::map<std::pair<int, int>, int> counts;
    constexpr int kEdge = 40;
    for (int x = kEdge; x < kTapeWidth - kEdge; ++x) {
        const RgbaS214& pixel = picture.at(x, y);
        ++counts[{pixel.c[0], pixel.c[1] - x}];
    }
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](auto& a, auto& b) { return a.second < b.second; });
    return {most->first.first, most->first.second, counts.size() == 1};
}

constexpr int kHalf = kTapeHeight / 20;
constexpr int kStreak = kHalf / 3 + 1;

/// The centre of the band near a row, from how far red has gone over to blue below it.
int centreNear(const Picture<RgbaS214>& picture, int row) {
    const int y = row - 16;
    const double gone = (rowOf(picture, y).red - kRed) / double{kBlue - kRed};
    return y + kHalf - static_cast<int>(std::lround(gone * kHalf));
}

void expectBand(const Picture<RgbaS214>& picture, int centre) {
    int furthest = 0;
    for (int y = centre - kHalf; y < centre + kHalf; ++y) {
        const int away = std::abs(y - centre);
        if (away <= kStreak) continue;
        const Row row = rowOf(picture, y);
        EXPECT_TRUE(row.even) << "no streak in row " << y;
        const double part = (kHalf - away) / double{kHalf};
        EXPECT_NEAR(std::abs(row.shift), kHalf * part * part, 1.0) << y << " of " << centre;
        EXPECT_NEAR(row.red, y < centre ? kRed + (kBlue - kRed) * part : kRed, 1.0) << y;
        furthest = std::max(furthest, std::abs(row.shift));
    }
    EXPECT_GE(furthest, kHalf / 3);
    int white = 0;
    for (int y = centre - kStreak; y <= centre + kStreak; ++y) {
        for (int x = 0; x < kTapeWidth; ++x) white += picture.at(x, y).c[1] > 5000;
    }
    EXPECT_GT(white, kTapeWidth / 2) << "a bright streak";
}

// Six bands a fifth of the picture apart, a tenth of it lower for each time the normal speed; what
// leaves at the low end comes back once at the other.
TEST(WindingArtefact, BandsTearThePictureWhereTheSpeedPutsThem) {
    for (const double speed : {100.5, 200.0, 350.0, -100.0}) {
        const auto picture = played(columnPicture(), speed, 4);
        std::vector<int> centres;
        for (int band = 0; band < 6; ++band) {
            double wanted = band * kTapeHeight / 5.0 - kTapeHeight * speed / 1000.0;
            if (wanted < -kHalf - 2) wanted += kTapeHeight * 6 / 5;
            // A band on the edge of its coming back may lie on either side.
            if (wanted < kHalf + 3 || wanted >= kTapeHeight - kHalf - 3) continue;
            const int centre = centreNear(picture, static_cast<int>(wanted));
            EXPECT_NEAR(centre, wanted, kTapeHeight / 250 + 1.0)
                << "band " << band << " at " << speed;
            expectBand(picture, centre);
            centres.push_back(centre);
        }
        EXPECT_GE(centres.size(), 4u) << speed;
        // Between the bands the picture is whole.
        for (std::size_t i = 0; i + 1 < centres.size(); ++i) {
            if (centres[i + 1] < centres[i]) continue;
            for (int y = centres[i] + kHalf; y < centres[i + 1] - kHalf; ++y) {
                const Row row = rowOf(picture, y);
                ASSERT_TRUE(row.even && row.shift == 0 && row.red == kRed) << y;
            }
        }
    }
}

TEST(WindingArtefact, ADvdWindsWithoutATrace) {
    for (const double speed : {200.0, 20.0, -100.0}) {
        EXPECT_EQ(played(columnPicture(), speed, 4, true), columnPicture()) << speed;
    }
}

// One bright column is seen again two columns on; which image is the stronger changes with every
// frame.
TEST(SlowArtefact, ThePictureIsDouble) {
    constexpr int kBar = 150, kDark = 3000, kBright = 9000;
    auto still = plain(kTapeWidth, 40, colourOf<RgbaS214>(kDark, kDark, kDark));
    for (int y = 0; y < 40; ++y) {
        still.pixels[static_cast<std::size_t>(y * kTapeWidth + kBar)] =
            colourOf<RgbaS214>(kBright, kBright, kBright);
    }
    for (int frame = 10; frame < 14; ++frame) {
        const double second = frame % 2 == 1 ? 0.6 : 0.4;
        const auto picture = played(still, 20.0, frame);
        for (int y = 9; y < 40; ++y) {
            for (int x = 20; x < kTapeWidth; ++x) {
                const double part = x == kBar ? 1.0 - second : x == kBar + 2 ? second : 0.0;
                ASSERT_NEAR(picture.at(x, y).c[1], kDark + (kBright - kDark) * part, 1.0)
                    << frame << ": " << x;
            }
        }
    }
}

// From six tenths of the height, and after five frames from three, a hundredth lower each frame.
TEST(SlowArtefact, ATearMovesByAHundredthAFrame) {
    constexpr int kTear = kTapeHeight / 15;
    for (int frame = 1; frame < 12; ++frame) {
        const auto picture = played(columnPicture(), 50.0, frame);
        int centre = -1, reddest = kRed;
        for (int y = kTapeHeight / 5; y < kTapeHeight; ++y) {
            const Row row = rowOf(picture, y);
            if (row.red > reddest) {
                reddest = row.red;
                centre = y;
            }
        }
        if (frame >= 10) {
            EXPECT_EQ(centre, -1) << "torn at " << frame;
            continue;
        }
        const int wanted = kTapeHeight * (frame < 5 ? 6 : 3) / 10 - frame * kTapeHeight / 100;
        EXPECT_EQ(centre, wanted) << frame;
        EXPECT_EQ(reddest, kRed + (kBlue - kRed) / 4);
        for (const int away : {0, 5, 15, 25}) {
            const double part = (kTear - away) / double{kTear};
            EXPECT_NEAR(rowOf(picture, wanted + away).shift, kTear * 0.5 * part * part, 1.0);
            if (wanted - away < kTapeHeight / 5) continue;
            EXPECT_NEAR(rowOf(picture, wanted - away).shift, kTear * 0.5 * part * part, 1.0);
        }
    }
}

/// What the noise above 0 comes to on the mean.
double meanOfPositiveNoise() {
    constexpr int kSamples = 100000;
    double sum = 0.0;
    for (int i = 0; i < kSamples; ++i) {
        sum += std::max(noiseTable().fractalNoise(static_cast<float>(i) * 0.0137f, 2), 0.0f);
    }
    return sum / kSamples;
}

TEST(SlowArtefact, NoiseFadesOutAlongTheLowestFifth) {
    constexpr int kHigh = 200, kFifth = kHigh / 5, kFrames = 12;
    const auto still = plain(kTapeWidth, kHigh, RgbaS214{});
    std::vector<double> light(kHigh);
    for (int frame = 20; frame < 20 + kFrames; ++frame) {
        const auto picture = played(still, 50.0, frame);
        for (int i = 0; i < kTapeWidth * kHigh; ++i) {
            light[static_cast<std::size_t>(i / kTapeWidth)] +=
                picture.pixels[static_cast<std::size_t>(i)].c[0] / 16384.0 / kTapeWidth / kFrames;
        }
    }
    for (int first = 0; first < kFifth; first += 10) {
        double seen = 0.0, wanted = 0.0;
        for (int y = first; y < first + 10; ++y) {
            seen += light[static_cast<std::size_t>(y)];
            wanted += meanOfPositiveNoise() * 0.5 * std::cos(y * std::numbers::pi / 2 / kFifth);
        }
        EXPECT_NEAR(seen, wanted, 0.2 * wanted) << "from row " << first;
    }
    for (int y = kFifth; y < kHigh; ++y) EXPECT_EQ(light[static_cast<std::size_t>(y)], 0.0) << y;
}

}  // namespace
}  // namespace ruvex::test
