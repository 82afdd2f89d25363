#include "media/frame.h"

#include <gtest/gtest.h>

#include "media/pixels/frame_convert.h"
#include "tests/media/test_clips.h"

namespace ruvex::media {
namespace {

TEST(FrameSize, NeedsAPixelEachWayAndStaysBelowTwoGigabytes) {
    const auto fault = [](int width, int height, Depth depth) {
        return complaintOf([&] { checkFrameSize({width, height}, depth, "x"); });
    };
    EXPECT_EQ(fault(1, 1, Depth::S214), "");
    EXPECT_NE(fault(0, 5, Depth::Bits8), "");
    EXPECT_NE(fault(5, 0, Depth::Bits8), "");
    EXPECT_NE(fault(-4, -4, Depth::Bits8), "");
    EXPECT_EQ(fault(536870911, 1, Depth::Bits8), "");  // 2147483644 bytes
    EXPECT_NE(fault(536870912, 1, Depth::Bits8), "");  // 2147483648 bytes
    EXPECT_EQ(fault(268435455, 1, Depth::S214), "");
    EXPECT_NE(fault(268435456, 1, Depth::S214), "");
    EXPECT_NE(fault(2147483647, 2147483647, Depth::S214), "");
}

TEST(Frame, RowsLieOneAfterTheOther) {
    Frame frame({3, 2}, Depth::S214);
    EXPECT_EQ(frame.bytes().size(), 48u);
    EXPECT_EQ(frame.row(1) - frame.row(0), 24);
}

TEST(RowOrder, ChainRowZeroIsTheBottomLine) {
    EXPECT_EQ(chainRowOfLine(0, 5), 4);
    EXPECT_EQ(chainRowOfLine(4, 5), 0);
    EXPECT_EQ(chainRowOfLine(0, 1), 0);
}

TEST(ConvertDepth, FramesGoToS214AndBack) {
    const Frame frame = noiseFrame({7, 5}, Depth::Bits8, 1);
    const Frame deep = convertDepth(frame, Depth::S214);
    EXPECT_EQ(deep.depth(), Depth::S214);
    EXPECT_EQ(deep.row16(4)[27], s214From8(frame.row8(4)[27]));
    EXPECT_EQ(convertDepth(deep, Depth::Bits8), frame);
    EXPECT_EQ(convertDepth(frame, Depth::Bits8), frame);
}

}  // namespace
}  // namespace ruvex::media
