// The effect painted through a mask.

#include <gtest/gtest.h>

#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Frame;
using media::FrameSize;

constexpr FrameSize kSize{16, 9};

/// A mask that is different at each pixel of a row and darker in each row.
int softMask(int x, int y) {
    return x * 17 * (kSize.height - y) / kSize.height;
}

template <class Value>
Frame greyFrame(Value value) {
    Frame frame(kSize, Depth::Bits8);
    for (int y = 0; y < kSize.height; ++y) {
        for (int x = 0; x < kSize.width; ++x) {
            std::uint8_t* pixel = frame.row8(y) + x * media::kChannels;
            std::fill_n(pixel, 3, static_cast<std::uint8_t>(value(x, y)));
            pixel[3] = 255;
        }
    }
    return frame;
}

/// Input frames of noise, and renders of frame 0 with an effect that is seen at every pixel.
class Mask : public testing::TestWithParam<Depth> {
protected:
    Mask() {
        for (int k = 0; k < 3; ++k) {
            media::writeRawFrame(folder.file(raw("in", k)), input(k));
        }
    }

    std::string ending() const { return GetParam() == Depth::Bits8 ? ".rgba8" : ".s214"; }
    std::string raw(const std::string& name, int k) const {
        return name + "." + std::to_string(k) + ending();
    }
    Frame input(int k) const {
        return media::noiseFrame(kSize, GetParam(), static_cast<unsigned>(k), true);
    }

    Outcome run(const std::string& out, const Arguments& more) {
        Arguments arguments = {"render", folder.file("in.%d" + ending()),
                               "-o",     folder.file(out + ".%d" + ending()),
                               "--size", "16x9",
                               "--set",  "Master Breakup=0",
                               "--set",  "Breakup Variation=0",
                               "--set",  "Scanline Width=4"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments);
    }
    Frame rendered(const std::string& out, const Arguments& more, int k = 0) {
        const Outcome outcome = run(out, more);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return media::readRawFrame(folder.file(raw(out, k)), kSize, GetParam());
    }
    Frame masked(const Frame& mask, const Arguments& more = {}) {
        media::writeStill(folder.file("mask.png"), mask);
        Arguments arguments = {"--mask", folder.file("mask.png")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return rendered("out", arguments);
    }

    int component(const Frame& frame, int i, int y) const {
        return GetParam() == Depth::Bits8 ? frame.row8(y)[i] : frame.row16(y)[i];
    }

    files::TempFolder folder;
};

TEST_P(Mask, BlackKeepsTheInput) {
    EXPECT_EQ(masked(greyFrame([](int, int) { return 0; })), input(0));
}

TEST_P(Mask, WhiteGivesTheEffect) {
    const Frame effect = rendered("plain", {});
    EXPECT_FALSE(effect == input(0));
    EXPECT_EQ(masked(greyFrame([](int, int) { return 255; })), effect);
}

TEST_P(Mask, GreyBlendsAndRowZeroIsTheBottomLine) {
    const Frame effect = rendered("plain", {});
    const Frame result = masked(greyFrame(softMask));
    const Frame before = input(0);
    for (int y = 0; y < kSize.height; ++y) {
        for (int i = 0; i < kSize.width * media::kChannels; ++i) {
            const int from = component(before, i, y);
            const int to = component(effect, i, y);
            const int m = softMask(i / media::kChannels, y);
            EXPECT_EQ(component(result, i, y), from + (to - from) * m / 255) << i << " " << y;
        }
    }
}

TEST_P(Mask, ARawMaskIsTakenInTheSizeOfTheInput) {
    media::writeRawFrame(folder.file("mask.rgba8"), greyFrame(softMask));
    EXPECT_EQ(rendered("raw", {"--mask", folder.file("mask.rgba8")}), masked(greyFrame(softMask)));
}

// Paint is laid onto the frame that is there, however fast the clip is played.
TEST_P(Mask, TheCurrentFrameIsPainted) {
    const Frame white = greyFrame([](int, int) { return 255; });
    media::writeStill(folder.file("mask.png"), white);
    EXPECT_EQ(rendered("fast", {"--mask", folder.file("mask.png"), "--set", "Play Speed=200"}, 1),
              rendered("plain", {}, 1));
}

TEST_P(Mask, OfAnotherSizeIsAWrongCommandLine) {
    media::writeStill(folder.file("small.png"), Frame({15, 9}, Depth::Bits8));
    const Outcome outcome = run("out", {"--mask", folder.file("small.png")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("15x9"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("16x9"), std::string::npos) << outcome.err;
}

TEST_P(Mask, NeedsTheNameOfOneStill) {
    EXPECT_EQ(run("out", {"--mask", folder.file("mask.mp4")}).status, 2);
    EXPECT_EQ(run("out", {"--mask", folder.file("mask.%d.png")}).status, 2);
    EXPECT_EQ(run("out", {"--mask", folder.file("none.png")}).status, 1);
    media::writeStill(folder.file("mask.png"), greyFrame(softMask));
    EXPECT_EQ(ruvex({"render", folder.file(raw("in", 0)), "-o", folder.file("mask.png"), "--size",
                     "16x9", "--mask", folder.file("mask.png")})
                  .status,
              2);
}

INSTANTIATE_TEST_SUITE_P(Depths, Mask, testing::Values(Depth::Bits8, Depth::S214));

}  // namespace
}  // namespace ruvex::cli
