// Rendering a part of the picture: it is that part of the whole, as far as nothing that it shows
// lies outside. One worker, so that no share begins elsewhere.

#include <cmath>
#include <gtest/gtest.h>

#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/broken_signal.h"
#include "tests/effect/support/module_workers.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr int kWidth = 84;
constexpr int kHeight = 60;
constexpr int kMarginX = kWidth / 7;

struct Part {
    int left, bottom, right, top;  // exclusive ends

    DSRECT rectangle() const { return {left, bottom, right - left, top - bottom}; }
    bool holds(int x, int y) const { return x >= left && x < right && y >= bottom && y < top; }
};

Part randomPart(Random& random) {
    Part part{random.whole(0, kWidth - 1), random.whole(0, kHeight - 1), 0, 0};
    part.right = random.whole(part.left + 1, kWidth);
    part.top = random.whole(part.bottom + 1, kHeight);
    return part;
}

/// The whole picture and a part of it, over the same source.
template <class P>
struct WholeAndPart {
    WholeAndPart(FaultySet& set, const Part& part) {
        const ModuleWorkers one(set, 1);
        const auto source = randomPicture<P>(kWidth, kHeight, 8);
        whole = set.frame(source, 4);
        alone = set.render(source, runtime::frameTime(4, 25.0), part.rectangle());
    }
    bool same(int x, int y) const { return whole.at(x, y) == alone.at(x, y); }

    /// The first pixel of `part` that differs, and nothing written outside it.
    void expectEqual(const Part& part) const {
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (part.holds(x, y)) {
                    ASSERT_TRUE(same(x, y)) << x << ", " << y;
                } else {
                    ASSERT_EQ(alone.at(x, y), P{}) << x << ", " << y;
                }
            }
        }
    }

    Picture<P> whole;
    Picture<P> alone;
};

template <class P>
class Region : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Region, FramePixels);

constexpr int kGhosts = 3;
constexpr int kSeed = 21;

/// How far to the right the ghosts read, for a distance at the level of one half.
std::vector<int> ghostOffsets(double distance) {
    std::vector<int> offsets;
    std::uint32_t state = kSeed;
    for (int i = 0; i < kGhosts; ++i) {
        const float place = uniform(state) * 100.0f;
        offsets.push_back(static_cast<int>(noiseTable().fractalNoise(place, 4) *
                                           static_cast<float>(distance * 0.5)));
    }
    return offsets;
}

int furthest(const std::vector<int>& offsets) {
    int most = 0;
    for (const int offset : offsets) most = std::max(most, std::abs(offset));
    return most;
}

TYPED_TEST(Region, StagesThatLookNoFurtherThanAMarginSeeAllTheyNeed) {
    Random random(4);
    for (int i = 0; i < cases(40); ++i) {
        FaultySet set(kWidth, kHeight,
                      {{Id::Seed, kSeed},
                       {Id::ColourThreshold, 0},
                       {Id::ColourDegradeMax, 50},
                       {Id::NumGhosts, kGhosts},
                       {Id::GhostingThreshold, 0},
                       {Id::GhostingDistanceMax, 20},
                       {Id::GhostingSpeed, 0},
                       {Id::EdgeThreshold, 0},
                       {Id::EdgeDistortionMax, 90},
                       {Id::SnowThreshold, 0},
                       {Id::SnowSoftness, 0},
                       {Id::VertOffsetThreshold, 0},
                       {Id::VertOffsetMax, 30},
                       {Id::ShashThreshold, 0},
                       {Id::ShashType, 3},
                       {Id::EmInterference, 50},
                       {Id::GunAlignRedX, 5},
                       {Id::BorderAlpha, 2},
                       {Id::ScanlineWidth, 4}});
        const Part part = randomPart(random);
        SCOPED_TRACE(testing::Message() << "case " << i);
        WholeAndPart<TypeParam>(set, part).expectEqual(part);
        if (testing::Test::HasFatalFailure()) return;
    }
    EXPECT_LE(furthest(ghostOffsets(20)), kMarginX);
}

// Soft grain is worked out around the part as well, as far as its size goes. The blur's three boxes
// reach up to a pixel each beyond that, where grey noise starts over and coloured noise ends.
TYPED_TEST(Region, SoftGrainGoesOnBeyondThePart) {
    constexpr int kBoxes = 3;
    Random random(5);
    int compared = 0;
    for (int i = 0; i < cases(40); ++i) {
        const bool shash = i % 3 == 0;
        FaultySet set(kWidth, kHeight,
                      {{Id::TvType, static_cast<double>(i % 2)},
                       {Id::SnowThreshold, 0},
                       {Id::SnowSoftness, random.real(0.1f, 9.0f)},
                       {Id::ShashThreshold, shash ? 0.0 : 100.0},
                       {Id::ShashType, 4}});
        const Part part = randomPart(random);
        if (part.right - part.left < 8) continue;
        const WholeAndPart<TypeParam> pictures(set, part);
        for (int y = part.bottom; y < part.top; ++y) {
            for (int x = part.left + kBoxes; x < part.right - kBoxes; ++x, ++compared) {
                ASSERT_TRUE(pictures.same(x, y)) << "case " << i << ": " << x << ", " << y;
            }
        }
    }
    EXPECT_GT(compared, cases(40) * 200);
}

// A ghost from further away than the margin is another one there.
TYPED_TEST(Region, AGhostIsWholeWhereItsPictureIsWithinAMargin) {
    // The furthest ghost is two margins away.
    double distance = 20.0;
    while (furthest(ghostOffsets(distance)) < 2 * kMarginX) distance += 1.0;
    const auto offsets = ghostOffsets(distance);
    FaultySet set(kWidth, kHeight,
                  {{Id::Seed, kSeed},
                   {Id::NumGhosts, kGhosts},
                   {Id::GhostingThreshold, 0},
                   {Id::GhostingDistanceMax, distance},
                   {Id::GhostingSpeed, 0}});
    const Part part{20, 10, 60, 40};
    const WholeAndPart<TypeParam> pictures(set, part);
    int near = 0, other = 0;
    for (int y = part.bottom; y < part.top; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            const bool seen = std::all_of(offsets.begin(), offsets.end(), [&](int offset) {
                return x + offset >= part.left - kMarginX && x + offset < part.right + kMarginX;
            });
            near += seen;
            other += !pictures.same(x, y);
            if (seen) {
                ASSERT_TRUE(pictures.same(x, y)) << x << ", " << y;
            }
        }
    }
    EXPECT_GT(near, 50);
    EXPECT_GT(other, 50);
}

TYPED_TEST(Region, PatternsThatBeginAnewWithTheRowsNeedTheFirstRow) {
    // Types 1 and 2 draw by the row, type 3 along it as well.
    const Part kParts[] = {{13, 0, 71, 33}, {0, 0, kWidth, 47}};
    for (int type = 0; type < 3; ++type) {
        FaultySet set(kWidth, kHeight,
                      {{Id::MasterBreakup, 100},
                       {Id::ShashThreshold, 0},
                       {Id::ShashType, static_cast<double>(type)}});
        for (const Part& part : kParts) {
            if (type == 2 && part.right < kWidth) continue;
            SCOPED_TRACE(testing::Message() << "type " << type + 1);
            WholeAndPart<TypeParam>(set, part).expectEqual(part);
        }
        const Part higher{0, 5, kWidth, 40};
        const WholeAndPart<TypeParam> pictures(set, higher);
        int same = 0;
        for (int y = higher.bottom; y < higher.top; ++y) {
            for (int x = 0; x < kWidth; ++x) same += pictures.same(x, y);
        }
        EXPECT_LT(same, 35 * kWidth * 9 / 10) << "another pattern of type " << type + 1;
    }
}

TYPED_TEST(Region, LinesOverAllRowsAreTheLinesOfTheWhole) {
    Random random(6);
    for (int i = 0; i < cases(12); ++i) {
        FaultySet set(kWidth, kHeight,
                      {{Id::LineThreshold, 0},
                       {Id::LineAngle, random.whole(0, 359) + 0.0},
                       {Id::LineSpacing, 7}});
        Part part = randomPart(random);
        part.bottom = 0;
        part.top = kHeight;
        WholeAndPart<TypeParam>(set, part).expectEqual(part);
        if (testing::Test::HasFatalFailure()) return;
    }
}

// The dot is made of what the part holds of the picture.
TYPED_TEST(Region, TheDotShowsTheRowsThatThePartHolds) {
    constexpr double kDot = 0.04;
    FaultySet set(kWidth, kHeight, {{Id::WhiteDot, kDot * 100}});
    const Part part{0, 0, kWidth, 45};
    const WholeAndPart<TypeParam> pictures(set, part);
    const double shrink = std::exp(-15.0 * kDot) + 0.005;
    const double bottom = std::floor(kHeight * (1.0 - shrink) / 2);
    constexpr int kHalo = 4;
    int compared = 0, black = 0, lit = 0;
    for (int y = 0; y < part.top; ++y) {
        const double sourceRow = (y - bottom) / shrink;
        for (int x = 0; x < kWidth; ++x) {
            if (sourceRow < part.top - kHalo / shrink) {
                ASSERT_TRUE(pictures.same(x, y)) << x << ", " << y;
                compared += pictures.whole.at(x, y).c[0] != 0;
            } else if (sourceRow > part.top + kHalo / shrink) {
                black += pictures.alone.at(x, y).c[0] == 0;
                lit += pictures.whole.at(x, y).c[0] != 0;
            }
        }
    }
    EXPECT_GT(compared, 1000);
    EXPECT_GT(lit, 50) << "where the whole still shows something,";
    EXPECT_GE(black, lit) << "the part has nothing to show";
}

// The halo is laid over all of the output about the dot, whatever the part is.
TYPED_TEST(Region, TheHalosWindowIsItsOwn) {
    constexpr double kDot = 0.6;
    FaultySet set(kWidth, kHeight, {{Id::WhiteDot, kDot * 100}});
    const ModuleWorkers one(set, 1);
    const auto before = randomPicture<TypeParam>(kWidth, kHeight, 31);
    auto output = imageOf(set.project(), before);
    const Part part{2, 2, 9, 7};
    set.render(randomPicture<TypeParam>(kWidth, kHeight, 8), 0.0, part.rectangle(),
               [&](runtime::RenderRequest& request) { request.output = output; });
    const auto after = pictureOf<TypeParam>(*output);
    const double glow = 5.0 * kDot;
    const double high = kHeight * (std::exp(-15.0 * kDot) + 0.005) / 2;
    const double wide = kWidth * (std::exp(-5.0 * kDot) + 0.005) / 2;
    int softened = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const bool halo = std::fabs(x + 0.5 - kWidth / 2.0) < wide + glow + 1.0 &&
                              std::fabs(y + 0.5 - kHeight / 2.0) < high + glow + 1.0;
            if (part.holds(x, y)) {
                ASSERT_EQ(after.at(x, y), TypeParam{}) << "the part is far from the dot";
            } else if (!halo) {
                ASSERT_EQ(after.at(x, y), before.at(x, y)) << x << ", " << y;
            } else {
                softened += after.at(x, y) != before.at(x, y);
            }
        }
    }
    EXPECT_GT(softened, 20);
}

}  // namespace
}  // namespace ruvex::test
