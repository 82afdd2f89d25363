#include "imaging/tex_axis.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <vector>

namespace ruvex {

static bool operator==(const TexPair& a, const TexPair& b) {
    return a.first == b.first && a.second == b.second && a.adjacent == b.adjacent;
}
static bool operator==(const TexRun& a, const TexRun& b) {
    return a.index == b.index && a.step == b.step && a.length == b.length;
}
static void PrintTo(const TexPair& pair, std::ostream* out) {
    *out << '(' << pair.first << ", " << pair.second << "), " << pair.adjacent;
}
static void PrintTo(const TexRun& run, std::ostream* out) {
    *out << run.index << " step " << run.step << " length " << run.length;
}

namespace {

using testing::ElementsAre;

constexpr std::int32_t kForEver = INT32_MAX;

TexAxis axisOf(std::int32_t size, std::uint32_t method) {
    TexAxis axis;
    axis.setSize(size);
    axis.edgeMethod = method;
    return axis;
}

std::vector<std::int32_t> indices(const TexAxis& axis, std::int32_t first, std::int32_t last) {
    std::vector<std::int32_t> result;
    for (std::int32_t i = first; i <= last; ++i) result.push_back(axis.mapIndex(i));
    return result;
}

TEST(TexAxis, ANewAxisIsEmptyWithItsEndBelowItsStart) {
    const TexAxis axis;
    EXPECT_EQ(axis.size, 0);
    EXPECT_EQ(axis.originF, 0.0f);
    EXPECT_EQ(axis.origin, 0);
    EXPECT_EQ(axis.edgeMethod, 0u);
    EXPECT_EQ(axis.lo, 0);
    EXPECT_EQ(axis.hi, -1);
    EXPECT_EQ(axis.count, 0);
    EXPECT_EQ(axis.offset, 0);
    EXPECT_EQ(axis.flags, 0u);
}

TEST(TexAxis, SettingASizeMakesAllOfItValid) {
    TexAxis axis = axisOf(10, 0);
    EXPECT_EQ(axis.lo, 0);
    EXPECT_EQ(axis.hi, 9);
    EXPECT_EQ(axis.count, 10);
    axis.setSize(0);
    EXPECT_EQ(axis.lo, 0);
    EXPECT_EQ(axis.hi, -1);
    EXPECT_EQ(axis.count, 0);
}

TEST(TexAxis, FloatOriginRoundsHalvesUp) {
    TexAxis axis;
    axis.setOrigin(2.5f);
    EXPECT_EQ(axis.origin, 3);
    EXPECT_EQ(axis.originF, 2.5f);
    axis.setOrigin(-2.6f);
    EXPECT_EQ(axis.origin, -3);
    EXPECT_EQ(axis.originF, -2.6f);
    axis.setOrigin(-2.5f);
    EXPECT_EQ(axis.origin, -2);
    axis.setOrigin(std::int32_t{-7});
    EXPECT_EQ(axis.origin, -7);
    EXPECT_EQ(axis.originF, -7.0f);
}

TEST(TexAxisRange, SwappedEndsGiveTheSameRange) {
    TexAxis forwards = axisOf(10, 0), backwards = axisOf(10, 0);
    forwards.setRange(2, 6);
    backwards.setRange(6, 2);
    EXPECT_EQ(forwards.lo, 2);
    EXPECT_EQ(forwards.hi, 6);
    EXPECT_EQ(forwards.count, 5);
    EXPECT_EQ(backwards.lo, forwards.lo);
    EXPECT_EQ(backwards.hi, forwards.hi);
    EXPECT_EQ(backwards.count, forwards.count);
}

TEST(TexAxisRange, EndsAreHeldToTheBuffer) {
    TexAxis axis = axisOf(10, 0);
    axis.setRange(-5, 25);
    EXPECT_EQ(axis.lo, 0);
    EXPECT_EQ(axis.hi, 9);
    axis.setRange(20, 30);
    EXPECT_EQ(axis.lo, 9);
    EXPECT_EQ(axis.hi, 9);
    EXPECT_EQ(axis.count, 1);
    axis.setRange(-8, -3);
    EXPECT_EQ(axis.lo, 0);
    EXPECT_EQ(axis.hi, 0);
}

TEST(TexAxisRange, AnEmptyAxisStaysEmpty) {
    TexAxis axis = axisOf(0, 1);
    axis.setRange(0, 5);
    EXPECT_EQ(axis.lo, 0);
    EXPECT_EQ(axis.hi, -1);
    EXPECT_EQ(axis.count, 0);
}

TEST(TexAxisIndex, FillRefusesEverythingOutside) {
    EXPECT_THAT(indices(axisOf(3, 0), -4, 6), ElementsAre(-1, -1, -1, -1, 0, 1, 2, -1, -1, -1, -1));
}

TEST(TexAxisIndex, HoldRepeatsTheEnds) {
    EXPECT_THAT(indices(axisOf(3, 1), -4, 6), ElementsAre(0, 0, 0, 0, 0, 1, 2, 2, 2, 2, 2));
}

TEST(TexAxisIndex, MirrorRepeatsTheEdgePixel) {
    EXPECT_THAT(indices(axisOf(3, 2), -7, 9),
                ElementsAre(0, 0, 1, 2, 2, 1, 0, 0, 1, 2, 2, 1, 0, 0, 1, 2, 2));
}

TEST(TexAxisIndex, WrapHasThePeriodOfTheRange) {
    EXPECT_THAT(indices(axisOf(3, 3), -7, 9),
                ElementsAre(2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0));
}

TEST(TexAxisIndex, MirrorOfTenPixels) {
    const TexAxis axis = axisOf(10, 2);
    EXPECT_EQ(axis.mapIndex(-1), 0);
    EXPECT_EQ(axis.mapIndex(-10), 9);
    EXPECT_EQ(axis.mapIndex(-11), 9);
    EXPECT_EQ(axis.mapIndex(10), 9);
    EXPECT_EQ(axis.mapIndex(19), 0);
    EXPECT_EQ(axis.mapIndex(20), 0);
}

TEST(TexAxisIndex, WrapOfTenPixels) {
    const TexAxis axis = axisOf(10, 3);
    EXPECT_EQ(axis.mapIndex(-1), 9);
    EXPECT_EQ(axis.mapIndex(-10), 0);
    EXPECT_EQ(axis.mapIndex(10), 0);
    EXPECT_EQ(axis.mapIndex(23), 3);
}

TEST(TexAxisIndex, OnePixelIsReadEverywhereExceptByFill) {
    for (const std::uint32_t method : {1u, 2u, 3u}) {
        EXPECT_THAT(indices(axisOf(1, method), -3, 3), ElementsAre(0, 0, 0, 0, 0, 0, 0)) << method;
    }
    EXPECT_THAT(indices(axisOf(1, 0), -3, 3), ElementsAre(-1, -1, -1, 0, -1, -1, -1));
}

TEST(TexAxisIndex, AnEmptyAxisRefusesEveryIndex) {
    for (const std::uint32_t method : {0u, 1u, 2u, 3u}) {
        const TexAxis axis = axisOf(0, method);
        for (const std::int32_t index : {INT32_MIN, -1, 0, 1, INT32_MAX}) {
            EXPECT_EQ(axis.mapIndex(index), kNoPixel) << method;
            EXPECT_EQ(axis.mapPair(index), (TexPair{-1, -1, false})) << method;
            EXPECT_EQ(axis.mapRun(index).index, kNoPixel) << method;
        }
    }
}

TEST(TexAxisIndex, ARangeNarrowerThanTheBufferActsAsTheWholeImage) {
    for (const std::uint32_t method : {0u, 1u, 2u, 3u}) {
        TexAxis cropped = axisOf(10, method);
        cropped.setRange(4, 6);
        const TexAxis whole = axisOf(3, method);
        for (std::int32_t i = -20; i <= 20; ++i) {
            const std::int32_t wanted = whole.mapIndex(i);
            EXPECT_EQ(cropped.mapIndex(i + 4), wanted == kNoPixel ? kNoPixel : wanted + 4)
                << "method " << method << " index " << i;
        }
    }
}

TEST(TexAxisPair, FillBlendsOneSeamWithTheFillPixel) {
    const TexAxis axis = axisOf(10, 0);
    EXPECT_EQ(axis.mapPair(-2), (TexPair{-1, -1, false}));
    EXPECT_EQ(axis.mapPair(-1), (TexPair{-1, 0, false}));
    EXPECT_EQ(axis.mapPair(0), (TexPair{0, 1, true}));
    EXPECT_EQ(axis.mapPair(8), (TexPair{8, 9, true}));
    EXPECT_EQ(axis.mapPair(9), (TexPair{9, -1, false}));
    EXPECT_EQ(axis.mapPair(10), (TexPair{-1, -1, false}));
}

TEST(TexAxisPair, HoldHasNoPairOutside) {
    const TexAxis axis = axisOf(10, 1);
    EXPECT_EQ(axis.mapPair(-5), (TexPair{0, 0, false}));
    EXPECT_EQ(axis.mapPair(-1), (TexPair{0, 0, false}));
    EXPECT_EQ(axis.mapPair(9), (TexPair{9, 9, false}));
    EXPECT_EQ(axis.mapPair(30), (TexPair{9, 9, false}));
}

TEST(TexAxisPair, MirrorRunsBackwardsAndForwards) {
    const TexAxis axis = axisOf(3, 2);
    EXPECT_EQ(axis.mapPair(-7), (TexPair{0, 0, false}));
    EXPECT_EQ(axis.mapPair(-6), (TexPair{0, 1, true}));
    EXPECT_EQ(axis.mapPair(-5), (TexPair{1, 2, true}));
    EXPECT_EQ(axis.mapPair(-4), (TexPair{2, 2, false}));
    EXPECT_EQ(axis.mapPair(-3), (TexPair{2, 1, false}));
    EXPECT_EQ(axis.mapPair(-2), (TexPair{1, 0, false}));
    EXPECT_EQ(axis.mapPair(-1), (TexPair{0, 0, false}));
    EXPECT_EQ(axis.mapPair(2), (TexPair{2, 2, false}));
    EXPECT_EQ(axis.mapPair(3), (TexPair{2, 1, false}));
    EXPECT_EQ(axis.mapPair(5), (TexPair{0, 0, false}));
    EXPECT_EQ(axis.mapPair(6), (TexPair{0, 1, true}));
}

TEST(TexAxisPair, WrapJoinsTheEnds) {
    const TexAxis axis = axisOf(3, 3);
    EXPECT_EQ(axis.mapPair(-4), (TexPair{2, 0, false}));
    EXPECT_EQ(axis.mapPair(-3), (TexPair{0, 1, true}));
    EXPECT_EQ(axis.mapPair(-1), (TexPair{2, 0, false}));
    EXPECT_EQ(axis.mapPair(2), (TexPair{2, 0, false}));
    EXPECT_EQ(axis.mapPair(3), (TexPair{0, 1, true}));
    EXPECT_EQ(axisOf(1, 3).mapPair(0), (TexPair{0, 0, false}));
}

TEST(TexAxisRun, InsideARunGoesToTheEndOfTheRange) {
    TexAxis axis = axisOf(10, 0);
    axis.setRange(2, 6);
    axis.setOrigin(std::int32_t{100});
    EXPECT_EQ(axis.mapRun(102), (TexRun{2, 1, 5}));
    EXPECT_EQ(axis.mapRun(106), (TexRun{6, 1, 1}));
    EXPECT_EQ(axis.mapRun(107), (TexRun{-1, 0, kForEver}));
    EXPECT_EQ(axis.mapRun(98), (TexRun{-1, 0, 4}));
}

TEST(TexAxisRun, HoldStandsStill) {
    const TexAxis axis = axisOf(10, 1);
    EXPECT_EQ(axis.mapRun(-4), (TexRun{0, 0, 4}));
    EXPECT_EQ(axis.mapRun(10), (TexRun{9, 0, kForEver}));
}

TEST(TexAxisRun, MirrorTurnsAtEachEdge) {
    const TexAxis axis = axisOf(10, 2);
    EXPECT_EQ(axis.mapRun(-1), (TexRun{0, -1, 1}));
    EXPECT_EQ(axis.mapRun(-10), (TexRun{9, -1, 10}));
    EXPECT_EQ(axis.mapRun(-11), (TexRun{9, 1, 1}));
    EXPECT_EQ(axis.mapRun(-13), (TexRun{7, 1, 3}));
    EXPECT_EQ(axis.mapRun(10), (TexRun{9, -1, 10}));
    EXPECT_EQ(axis.mapRun(19), (TexRun{0, -1, 1}));
    EXPECT_EQ(axis.mapRun(20), (TexRun{0, 1, 10}));
}

TEST(TexAxisRun, WrapStartsAgain) {
    const TexAxis axis = axisOf(10, 3);
    EXPECT_EQ(axis.mapRun(-1), (TexRun{9, 1, 1}));
    EXPECT_EQ(axis.mapRun(-10), (TexRun{0, 1, 10}));
    EXPECT_EQ(axis.mapRun(23), (TexRun{3, 1, 7}));
}

TEST(TexAxisRun, AFillFarBelowHasALengthThatFits) {
    const TexAxis axis = axisOf(10, 0);
    EXPECT_EQ(axis.mapRun(INT32_MIN), (TexRun{-1, 0, kForEver}));
}

}  // namespace
}  // namespace ruvex
