#include "imaging/tex_indexer.h"

#include <gtest/gtest.h>

namespace ruvex {
namespace {

VxTexIndexer indexerOf(std::int32_t width, std::int32_t height, std::int32_t originX,
                       std::int32_t originY) {
    VxTexIndexer indexer;
    indexer.x.setSize(width);
    indexer.y.setSize(height);
    indexer.setOrigin(originX, originY);
    return indexer;
}

void expectLayout(const TexAxis& axis, std::int32_t size, std::int32_t origin) {
    EXPECT_EQ(axis.size, size);
    EXPECT_EQ(axis.origin, origin);
    EXPECT_EQ(axis.offset, origin);
    EXPECT_EQ(axis.originF, static_cast<float>(origin));
    EXPECT_EQ(axis.lo, 0);
    EXPECT_EQ(axis.hi, size - 1);
    EXPECT_EQ(axis.count, size);
    EXPECT_EQ(axis.flags, 0u);
}

TEST(TexIndexer, SettersReachBothAxes) {
    VxTexIndexer indexer = indexerOf(10, 20, 0, 0);
    indexer.setRange(8, 2, 15, 5);
    EXPECT_EQ(indexer.x.lo, 2);
    EXPECT_EQ(indexer.x.hi, 8);
    EXPECT_EQ(indexer.y.lo, 5);
    EXPECT_EQ(indexer.y.hi, 15);
    indexer.setEdgeMethods(1, 3);
    EXPECT_EQ(indexer.x.edgeMethod, 1u);
    EXPECT_EQ(indexer.y.edgeMethod, 3u);
    indexer.setOrigin(2.5f, -2.6f);
    EXPECT_EQ(indexer.x.origin, 3);
    EXPECT_EQ(indexer.y.origin, -3);
    indexer.setOrigin(-4, 9);
    EXPECT_EQ(indexer.x.originF, -4.0f);
    EXPECT_EQ(indexer.y.origin, 9);
}

TEST(MarginLayout, MarginsGrowTheImageOnEachSide) {
    const VxTexIndexer padded(indexerOf(100, 50, 10, -5), {1, 2, 3, 4});
    expectLayout(padded.x, 104, 9);
    expectLayout(padded.y, 56, -7);
}

TEST(MarginLayout, NegativeMarginsTakeAwayAndAnEmptyAxisHasSizeNought) {
    const VxTexIndexer padded(indexerOf(10, 10, 0, 0), {-2, -6, -3, -6});
    expectLayout(padded.x, 5, 2);
    expectLayout(padded.y, 0, 6);
}

TEST(MarginLayout, ACroppedRangeIsNotCarriedOver) {
    VxTexIndexer source = indexerOf(10, 10, 0, 0);
    source.setRange(3, 5, 3, 5);
    source.x.offset = 77;
    source.x.flags = 1;
    const VxTexIndexer padded(source, {1, 1, 1, 1});
    expectLayout(padded.x, 12, -1);
}

TEST(MarginLayout, TheFractionOfAnOriginIsDropped) {
    VxTexIndexer source = indexerOf(10, 10, 0, 0);
    source.setOrigin(2.25f, 2.75f);
    const VxTexIndexer padded(source, {1, 1, 0, 0});
    expectLayout(padded.x, 11, 1);
    expectLayout(padded.y, 11, 2);
}

TEST(MarginLayout, LimitsHoldTheFirstAndTheLastCoordinate) {
    // Wanted: columns -5 to 24, rows -5 to 24.
    const TexLimits limits{0, -3, 20, 100};
    const VxTexIndexer padded(indexerOf(20, 20, 0, 0), {5, 5, 5, 5}, &limits);
    expectLayout(padded.x, 21, 0);
    expectLayout(padded.y, 28, -3);
}

TEST(MarginLayout, LimitsInsideTheImageCutIt) {
    const TexLimits limits{5, 5, 8, 30};
    const VxTexIndexer padded(indexerOf(20, 20, 0, 0), {5, 5, 5, 5}, &limits);
    expectLayout(padded.x, 4, 5);
    expectLayout(padded.y, 20, 5);
}

TEST(MarginLayout, WideOpenLimitsChangeNothing) {
    const TexLimits limits;
    const VxTexIndexer padded(indexerOf(20, 20, 3, 4), {5, 6, 7, 8}, &limits);
    expectLayout(padded.x, 32, -2);
    expectLayout(padded.y, 34, -2);
}

TEST(MarginLayout, AnEdgeMethodIsKept) {
    VxTexIndexer source = indexerOf(10, 10, 0, 0);
    source.setEdgeMethods(1, 2);
    const VxTexIndexer padded(source, {2, 2, 2, 2});
    EXPECT_EQ(padded.x.edgeMethod, 1u);
    EXPECT_EQ(padded.y.edgeMethod, 2u);
    expectLayout(padded.x, 14, -2);
}

TEST(MarginLayout, KeepIfEdgedLeavesAnAxisThatCoversItsOutside) {
    VxTexIndexer source = indexerOf(10, 10, 7, 7);
    source.setRange(2, 4, 2, 4);
    source.setEdgeMethods(1, 0);
    const TexLimits limits{0, 0, 3, 3};
    const VxTexIndexer padded(source, {2, 2, 2, 2}, &limits, true);
    EXPECT_EQ(padded.x.size, 10);
    EXPECT_EQ(padded.x.lo, 2);
    EXPECT_EQ(padded.x.hi, 4);
    EXPECT_EQ(padded.x.origin, 7);
    EXPECT_EQ(padded.x.offset, 7);
    // The other axis has no edge method: it wants rows 5 to 18 and may have 0 to 3.
    expectLayout(padded.y, 1, 3);
}

}  // namespace
}  // namespace ruvex
