// Grey video of limited and of full range.

#include <algorithm>
#include <cmath>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

#include "media/av_library.h"
#include "media/frame_reader.h"
#include "media/pixels/rgb_lines.h"
#include "media/streams/stream_reader.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

/// Code values of a grey picture, one line, from below black to above white of limited range.
std::vector<int> greyCodes(int bits) {
    std::vector<int> codes;
    const int scale = 1 << (bits - 8);
    for (const int code : {0, 15, 16, 17, 30, 128, 218, 234, 235, 236, 254, 255}) {
        codes.push_back(code * scale);
    }
    codes.push_back(256 * scale - 1);
    return codes;
}

std::string bytesOf(const std::vector<int>& codes, int bits) {
    std::string bytes;
    for (const int code : codes) {
        bytes += static_cast<char>(code & 255);
        if (bits > 8) bytes += static_cast<char>(code >> 8);
    }
    return bytes;
}

/// The component of a frame that is nearest to a code.
int expectedOf(int code, int bits, bool limited, Depth depth) {
    const double scale = std::exp2(bits - 8);
    const double share =
        limited ? (code - 16 * scale) / (219 * scale) : code / (std::exp2(bits) - 1);
    return depth == Depth::Bits8
               ? static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kWhite8))
               : static_cast<int>(std::lround(share * kWhiteS214));
}

void expectGrey(const Frame& frame, int bits, bool limited, const std::string& what) {
    const std::vector<int> codes = greyCodes(bits);
    ASSERT_EQ(frame.width(), static_cast<int>(codes.size()));
    ASSERT_EQ(frame.depth(), bits == 8 ? Depth::Bits8 : Depth::S214);
    for (std::size_t x = 0; x < codes.size(); ++x) {
        for (std::size_t c = 0; c < 3; ++c) {
            const std::size_t at = x * kChannels + c;
            const int got = bits == 8 ? frame.row8(0)[at] : frame.row16(0)[at];
            EXPECT_EQ(got, expectedOf(codes[x], bits, limited, frame.depth()))
                << what << ", code " << codes[x] << " of " << bits << " bits";
        }
    }
}

Frame firstOf(FrameReader& reader) {
    Frame frame;
    EXPECT_TRUE(reader.read(0, frame));
    return frame;
}

class GreyOfDepth : public testing::TestWithParam<int> {};

TEST_P(GreyOfDepth, OfY4mHasTheRangeOfTheHeader) {
    const files::TempFolder folder;
    const int bits = GetParam();
    const std::string kind = bits == 8 ? "mono" : "mono" + std::to_string(bits);
    const std::vector<int> codes = greyCodes(bits);
    for (const auto& [tag, limited] : {std::pair<std::string, bool>{" XCOLORRANGE=LIMITED", true},
                                       {" XCOLORRANGE=FULL", false},
                                       {"", true}}) {
        std::ofstream(folder.file("a.y4m"), std::ios::binary)
            << "YUV4MPEG2 W" << codes.size() << " H1 F25:1 C" << kind << tag << "\nFRAME\n"
            << bytesOf(codes, bits);
        expectGrey(firstOf(*openReader(folder.file("a.y4m"))), bits, limited, "a file" + tag);
        const int descriptor = open(folder.file("a.y4m").c_str(), O_RDONLY);
        StreamReader stream(descriptor, "a stream", {});
        expectGrey(firstOf(stream), bits, limited, "a stream" + tag);
        close(descriptor);
    }
}

TEST_P(GreyOfDepth, OfVideoHasTheRangeThatIsMarked) {
    const files::TempFolder folder;
    const int bits = GetParam();
    if (bits == 9) GTEST_SKIP() << "has no name for raw video of the ffmpeg command";
    const std::string format = bits == 8 ? "gray" : "gray" + std::to_string(bits) + "le";
    const std::vector<int> codes = greyCodes(bits);
    std::ofstream(folder.file("a.raw"), std::ios::binary) << bytesOf(codes, bits);
    for (const auto& [range, limited] : {std::pair<std::string, bool>{"tv", true}, {"pc", false}}) {
        runFfmpeg("-f rawvideo -pixel_format " + format + " -video_size " +
                      std::to_string(codes.size()) + "x1 -i " + quoted(folder.file("a.raw")) +
                      " -c:v ffv1 -color_range " + range,
                  folder.file("a.mkv"));
        ASSERT_EQ(probe(folder.file("a.mkv"), "stream=pix_fmt,color_range"),
                  "pix_fmt=" + format + "\ncolor_range=" + range + "\n");
        expectGrey(firstOf(*openReader(folder.file("a.mkv"))), bits, limited, range);
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, GreyOfDepth, testing::Values(8, 9, 10, 12, 16));

// Alpha is of full range always.
TEST(Grey, OfLimitedRangeHasFullAlpha) {
    const AvFrame picture = newPicture(2, 1, AV_PIX_FMT_YA8);
    picture->color_range = AVCOL_RANGE_MPEG;
    const std::uint8_t pixels[] = {16, 0, 235, 235};
    std::copy(std::begin(pixels), std::end(pixels), picture->data[0]);
    Frame frame({2, 1}, Depth::Bits8);
    unpackRgb(*picture, frame);
    EXPECT_EQ(frame.row8(0)[0], 0);
    EXPECT_EQ(frame.row8(0)[3], 0);
    EXPECT_EQ(frame.row8(0)[4], 255);
    EXPECT_EQ(frame.row8(0)[7], 235);
}

}  // namespace
}  // namespace ruvex::media
