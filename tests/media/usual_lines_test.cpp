// Every value of 16 bits, from frames and into frames.

extern "C" {
#include <libavutil/intreadwrite.h>
}

#include <gtest/gtest.h>

#include "media/av_library.h"
#include "media/pixels/plane_line.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
namespace {

/// A frame or picture with room for each 16-bit value once.
constexpr FrameSize kSize{256, 64};
constexpr int kLineValues = 256 * kChannels;

/// The value at a place of a picture; `value` counts from the top.
int valueAt(const AVFrame& picture, int value) {
    const std::uint8_t* place =
        planeLine(picture, 0, value / kLineValues) + 2 * (value % kLineValues);
    return picture.format == AV_PIX_FMT_RGBA64BE ? AV_RB16(place) : AV_RL16(place);
}

std::int16_t& componentAt(Frame& frame, int value) {
    return frame.row16(chainRowOfLine(value / kLineValues, kSize.height))[value % kLineValues];
}

TEST(UsualLines, EveryS214ValueIsPackedAsTheNearestWord) {
    Frame frame(kSize, Depth::S214);
    for (int value = 0; value < 65536; ++value) {
        componentAt(frame, value) = static_cast<std::int16_t>(value - 32768);
    }
    for (const AVPixelFormat format : {AV_PIX_FMT_RGBA64LE, AV_PIX_FMT_RGBA64BE}) {
        const AvFrame picture = newPicture(kSize.width, kSize.height, format);
        packRgb(frame, *picture);
        for (int value = 0; value < 65536; ++value) {
            ASSERT_EQ(valueAt(*picture, value), u16FromS214(componentAt(frame, value)))
                << componentAt(frame, value);
        }
    }
}

TEST(UsualLines, EveryWordIsUnpackedAsTheNearestS214Value) {
    for (const AVPixelFormat format : {AV_PIX_FMT_RGBA64LE, AV_PIX_FMT_RGBA64BE}) {
        const AvFrame picture = newPicture(kSize.width, kSize.height, format);
        for (int value = 0; value < 65536; ++value) {
            std::uint8_t* place =
                planeLine(*picture, 0, value / kLineValues) + 2 * (value % kLineValues);
            if (format == AV_PIX_FMT_RGBA64BE) {
                AV_WB16(place, value);
            } else {
                AV_WL16(place, value);
            }
        }
        Frame frame(kSize, Depth::S214);
        unpackRgb(*picture, frame);
        for (int value = 0; value < 65536; ++value) {
            ASSERT_EQ(componentAt(frame, value), s214From16(static_cast<std::uint16_t>(value)))
                << value;
        }
    }
}

TEST(UsualLines, BytesArePackedInTheOrderOfTheFormat) {
    Frame frame({37, 3}, Depth::Bits8);
    for (std::size_t i = 0; i < frame.bytes().size(); ++i) {
        frame.bytes()[i] = static_cast<std::byte>(i * 7);
    }
    for (const AVPixelFormat format : {AV_PIX_FMT_RGBA, AV_PIX_FMT_BGRA}) {
        const AvFrame picture = newPicture(37, 3, format);
        packRgb(frame, *picture);
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 37; ++x) {
                const std::uint8_t* got = planeLine(*picture, 0, y) + 4 * x;
                const std::uint8_t* pixel = frame.row8(chainRowOfLine(y, 3)) + 4 * x;
                const bool blueFirst = format == AV_PIX_FMT_BGRA;
                EXPECT_EQ(got[0], pixel[blueFirst ? 2 : 0]);
                EXPECT_EQ(got[1], pixel[1]);
                EXPECT_EQ(got[2], pixel[blueFirst ? 0 : 2]);
                EXPECT_EQ(got[3], pixel[3]);
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::media
