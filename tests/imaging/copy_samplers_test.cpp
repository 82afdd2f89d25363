#include "imaging/copy_samplers.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex {
namespace {

using test::Canvas;
using test::firstDifference;
using test::placePixel;

class CopySamplers : public testing::Test {
protected:
    void SetUp() override {
        source_.number();
        test::Random random(1);
        map_.scribble(random);
        before_ = map_.memory;
    }

    Canvas<Rgba8> source_{6, 4};
    Canvas<Rgba8> map_{6, 4};
    std::vector<Rgba8> before_;
};

TEST_F(CopySamplers, AWholeCopyIsThePicture) {
    SimpleCopySampler<Rgba8> sampler;
    sampler.process(&source_.texture, &map_.texture);
    for (std::int32_t row = 0; row < 4; ++row) {
        for (std::int32_t column = 0; column < 6; ++column) {
            EXPECT_EQ(map_.at(column, row), placePixel<Rgba8>(column, row));
        }
    }
}

TEST_F(CopySamplers, TheSourceIsReadByItsOriginAndWrittenByTheMapsOffset) {
    source_.texture.setOrigin(2, 1);
    source_.texture.x.offset = 99;  // not used for reading
    map_.texture.x.offset = 2;
    map_.texture.y.offset = 1;
    map_.texture.setOrigin(-50, -50);  // not used for writing
    SimpleCopySampler<Rgba8> sampler;
    sampler.process(&source_.texture, &map_.texture);
    EXPECT_EQ(map_.at(0, 0), placePixel<Rgba8>(0, 0));
    EXPECT_EQ(map_.at(5, 3), placePixel<Rgba8>(5, 3));
}

TEST_F(CopySamplers, OutsideASourceOfEdgeMethodNoughtTheFillPixelAppears) {
    source_.texture.setOrigin(2, 0);
    source_.texture.setFill({{9, 9, 9, 9}});
    SimpleCopySampler<Rgba8> sampler;
    sampler.process(&source_.texture, &map_.texture);
    EXPECT_EQ(map_.at(1, 0), (Rgba8{{9, 9, 9, 9}}));
    EXPECT_EQ(map_.at(2, 0), placePixel<Rgba8>(0, 0));
    EXPECT_EQ(map_.at(5, 3), placePixel<Rgba8>(3, 3));
}

TEST_F(CopySamplers, OneRowOutsideIsAllFill) {
    source_.texture.setOrigin(0, 1);
    source_.texture.setEdgeMethods(1, 0);
    source_.texture.setFill({{9, 9, 9, 9}});
    SimpleCopySampler<Rgba8> sampler;
    sampler.process(&source_.texture, &map_.texture);
    EXPECT_EQ(map_.at(3, 0), (Rgba8{{9, 9, 9, 9}}));
    EXPECT_EQ(map_.at(3, 1), placePixel<Rgba8>(3, 0));
}

TEST_F(CopySamplers, MirroredAndWrappedRunsJoinWithoutASeam) {
    Canvas<Rgba8> wide(30, 1);
    source_.texture.setOrigin(10, 0);
    source_.texture.setEdgeMethods(2, 1);
    SimpleCopySampler<Rgba8> sampler;
    sampler.process(&source_.texture, &wide.texture);
    // Column 10 is the first pixel; before it the picture runs backwards, then forwards again.
    EXPECT_EQ(wide.at(9, 0).c[0], 0);
    EXPECT_EQ(wide.at(4, 0).c[0], 5);
    EXPECT_EQ(wide.at(3, 0).c[0], 5);
    EXPECT_EQ(wide.at(0, 0).c[0], 2);
    EXPECT_EQ(wide.at(16, 0).c[0], 5);
    EXPECT_EQ(wide.at(21, 0).c[0], 0);
    EXPECT_EQ(wide.at(22, 0).c[0], 0);
    source_.texture.setEdgeMethods(3, 1);
    sampler.process(&source_.texture, &wide.texture);
    EXPECT_EQ(wide.at(9, 0).c[0], 5);
    EXPECT_EQ(wide.at(16, 0).c[0], 0);
    EXPECT_EQ(wide.at(29, 0).c[0], 1);
}

TEST_F(CopySamplers, ChannelsNoughtLeavesTheMapUntouched) {
    VxRGBCopySampler<Rgba8> sampler;
    sampler.channels = 0;
    sampler.process(&source_.texture, &map_.texture);
    EXPECT_EQ(firstDifference(map_.memory, before_), "");
}

TEST_F(CopySamplers, AllChannelsGiveTheSameAsTheSimpleCopy) {
    VxRGBCopySampler<Rgba8> byChannels;
    EXPECT_EQ(byChannels.channels, 15u);
    byChannels.process(&source_.texture, &map_.texture);
    const std::vector<Rgba8> result = map_.memory;
    map_.memory = before_;
    SimpleCopySampler<Rgba8> simple;
    simple.process(&source_.texture, &map_.texture);
    EXPECT_EQ(firstDifference(result, map_.memory), "");
}

TEST_F(CopySamplers, UnselectedChannelsKeepWhatTheMapHas) {
    VxRGBCopySampler<Rgba8> sampler;
    sampler.channels = 0b1010;
    source_.texture.setOrigin(1, 0);
    source_.texture.setFill({{91, 92, 93, 94}});
    sampler.process(&source_.texture, &map_.texture);
    const Rgba8 outside = before_[map_.indexOf(0, 2)], inside = before_[map_.indexOf(4, 2)];
    EXPECT_EQ(map_.at(0, 2), (Rgba8{{outside.c[0], 92, outside.c[2], 94}}));
    EXPECT_EQ(map_.at(4, 2), (Rgba8{{inside.c[0], 2, inside.c[2], 50}}));
}

TEST_F(CopySamplers, AFieldIsEverySecondRow) {
    SimpleCopySampler<Rgba8> sampler;
    sampler.setFieldMode(2);
    sampler.process(&source_.texture, &map_.texture);
    EXPECT_EQ(map_.at(3, 0), before_[map_.indexOf(3, 0)]);
    EXPECT_EQ(map_.at(3, 1), placePixel<Rgba8>(3, 1));
    EXPECT_EQ(map_.at(3, 2), before_[map_.indexOf(3, 2)]);
    EXPECT_EQ(map_.at(3, 3), placePixel<Rgba8>(3, 3));
}

TEST_F(CopySamplers, AStoppedRenderLeavesTheMapAlone) {
    InterruptionRecord record;
    record.interrupted = 1;
    SimpleCopySampler<Rgba8> sampler;
    sampler.interrupt = &record;
    sampler.process(&source_.texture, &map_.texture);
    EXPECT_EQ(firstDifference(map_.memory, before_), "");
}

TEST_F(CopySamplers, ARunStopsAtTheEndColumn) {
    Rgba8 row[4] = {};
    Rgba8* cursor = row;
    EXPECT_EQ(SimpleLineCopier::copyRun(cursor, source_.texture, 1, 2, 4), 3);
    EXPECT_EQ(cursor, row + 3);
    EXPECT_EQ(row[2], placePixel<Rgba8>(3, 2));
    EXPECT_EQ(row[3], Rgba8{});
}

TEST(ChannelCopy, CopiesItsComponentAlone) {
    Canvas<RgbaInt> source(3, 2), map(3, 2);
    source.at(1, 1) = {{-5, 1000000, INT32_MIN, INT32_MAX}};
    map.at(1, 1) = {{1, 2, 3, 4}};
    ChannelCopySampler<2> sampler;
    sampler.process(&source.texture, &map.texture);
    EXPECT_EQ(map.at(1, 1), (RgbaInt{{1, 2, INT32_MIN, 4}}));
}

}  // namespace
}  // namespace ruvex
