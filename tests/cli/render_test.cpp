#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using files::TempFolder;
using media::Depth;
using media::Frame;
using media::FrameSize;

/// No breakup, no other change: what comes out is what went in.
const Arguments kNeutral = {"--set", "Master Breakup=0", "--set", "Breakup Variation=0"};

void expectDone(Arguments arguments, const Arguments& more = {}) {
    arguments.insert(arguments.begin(), "render");
    arguments.insert(arguments.end(), more.begin(), more.end());
    const Outcome outcome = ruvex(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
}

/// S2.14 without what lies below black.
Frame notNegative(Frame frame) {
    for (int y = 0; y < frame.height(); ++y) {
        for (int i = 0; i < frame.width() * media::kChannels; ++i) {
            frame.row16(y)[i] = static_cast<std::int16_t>(frame.row16(y)[i] & 0x7FFF);
        }
    }
    return frame;
}

class NeutralRender : public testing::TestWithParam<FrameSize> {};

TEST_P(NeutralRender, GivesBackEightBitInputs) {
    TempFolder folder;
    const Frame frame = media::noiseFrame(GetParam(), Depth::Bits8, 1);
    media::writeRawFrame(folder.file("a.rgba8"), frame);
    expectDone({folder.file("a.rgba8"), "-o", folder.file("b.rgba8"), "--size", toText(GetParam())},
               kNeutral);
    EXPECT_TRUE(media::readRawFrame(folder.file("b.rgba8"), GetParam(), Depth::Bits8) == frame);
}

TEST_P(NeutralRender, GivesBackS214InputsFromBlackUp) {
    TempFolder folder;
    const Frame frame = notNegative(media::noiseFrame(GetParam(), Depth::S214, 1));
    media::writeRawFrame(folder.file("a.s214"), frame);
    expectDone({folder.file("a.s214"), "-o", folder.file("b.s214"), "--size", toText(GetParam())},
               kNeutral);
    EXPECT_TRUE(media::readRawFrame(folder.file("b.s214"), GetParam(), Depth::S214) == frame);
}

constexpr FrameSize kSizes[] = {
    {1, 1},       {2, 1},       {1, 2},   {1, 100},   {100, 1},
    {3, 5},       {17, 31},     {64, 64}, {719, 575}, {720, 576},
#ifndef RUVEX_SANITIZED
    {1920, 1080}, {4096, 2160},
#endif
};

INSTANTIATE_TEST_SUITE_P(Sizes, NeutralRender, testing::ValuesIn(kSizes));

/// A numbered clip of raw frames 0 to 4, 8x6.
struct RawClip : testing::Test {
    static constexpr FrameSize kSize{8, 6};

    RawClip() {
        for (int k = 0; k < 5; ++k) {
            media::writeRawFrame(folder.file("in." + std::to_string(k) + ".rgba8"), input(k));
        }
    }

    static Frame input(int k) {
        return media::noiseFrame(kSize, Depth::Bits8, static_cast<unsigned>(k));
    }
    Frame result(int k) const {
        return media::readRawFrame(folder.file("out." + std::to_string(k) + ".rgba8"), kSize,
                                   Depth::Bits8);
    }
    bool made(int k) const {
        return std::filesystem::exists(folder.file("out." + std::to_string(k) + ".rgba8"));
    }
    void render(const Arguments& more) {
        expectDone({folder.file("in.%d.rgba8"), "-o", folder.file("out.%d.rgba8"), "--size", "8x6"},
                   more);
    }

    TempFolder folder;
};

TEST_F(RawClip, FramesKeepTheirNumbers) {
    render(kNeutral);
    for (int k = 0; k < 5; ++k) {
        EXPECT_EQ(result(k), input(k)) << k;
    }
}

TEST_F(RawClip, FramesAreChosenInclusive) {
    Arguments more = kNeutral;
    more.insert(more.end(), {"--frames", "2-3"});
    render(more);
    EXPECT_FALSE(made(1));
    EXPECT_TRUE(made(2));
    EXPECT_TRUE(made(3));
    EXPECT_FALSE(made(4));
    EXPECT_EQ(result(2), input(2));
}

// White Dot at 100 blanks a frame, so it shows at which frames a key has taken effect.
TEST_F(RawClip, FrameKIsAtTimeKOverRate) {
    Arguments more = kNeutral;
    more.insert(more.end(), {"--rate", "2", "--key", "White Dot=0.99:0 1:100 1.01:0"});
    render(more);
    const Frame blank(kSize, Depth::Bits8);
    EXPECT_EQ(result(1), input(1));
    EXPECT_EQ(result(2), blank);
    EXPECT_EQ(result(3), input(3));
}

TEST_F(RawClip, ASettingHoldsAtAllTimes) {
    render({"--set", "White Dot=100"});
    for (int k = 0; k < 5; ++k) {
        EXPECT_EQ(result(k), Frame(kSize, Depth::Bits8)) << k;
    }
}

// At double speed frame 1 shows frame 2, which the effect asks the command for.
TEST_F(RawClip, TheEffectIsServedFramesOfOtherTimes) {
    Arguments more = kNeutral;
    more.insert(more.end(), {"--set", "Play Speed=200"});
    render(more);
    EXPECT_EQ(result(1), input(2));
    EXPECT_EQ(result(2), input(4));
    // Beyond the clip the request is refused, and the frame stays blank.
    EXPECT_EQ(result(3), Frame(kSize, Depth::Bits8));
}

TEST_F(RawClip, OneFrameAloneMayFetchOthers) {
    Arguments more = kNeutral;
    more.insert(more.end(), {"--set", "Play Speed=200", "--frames", "2-2"});
    render(more);
    EXPECT_EQ(result(2), input(4));
    EXPECT_FALSE(made(4));
}

TEST_F(RawClip, AFrameThatCannotBeFetchedFailsTheJob) {
    std::filesystem::resize_file(folder.file("in.2.rgba8"), 5);
    const Outcome outcome =
        ruvex({"render", folder.file("in.%d.rgba8"), "-o", folder.file("out.%d.rgba8"), "--size",
               "8x6", "--set", "Play Speed=200", "--frames", "1-1"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("in.2.rgba8"), std::string::npos) << outcome.err;
    EXPECT_FALSE(made(1));
}

TEST_F(RawClip, OutsideTheRegionTheOutputKeepsZeroes) {
    Arguments more = kNeutral;
    more.insert(more.end(), {"--region", "2,1,3,4", "--frames", "0-0"});
    render(more);
    const Frame out = result(0);
    const Frame in = input(0);
    for (int y = 0; y < kSize.height; ++y) {
        for (int i = 0; i < kSize.width * 4; ++i) {
            const bool inside = i / 4 >= 2 && i / 4 < 5 && y >= 1 && y < 5;
            EXPECT_EQ(out.row8(y)[i], inside ? in.row8(y)[i] : 0) << i << " " << y;
        }
    }
}

TEST_F(RawClip, TheEffectWorksOnThePicture) {
    render({"--set", "Resolution=50", "--frames", "0-0"});
    EXPECT_FALSE(result(0) == input(0));
    EXPECT_FALSE(result(0) == Frame(kSize, Depth::Bits8));
}

TEST_F(RawClip, TheNumberOfWorkersIsTaken) {
    render({"--set", "Resolution=50", "--workers", "3"});
    const Frame three = result(4);
    render({"--set", "Resolution=50", "--workers", "3"});
    EXPECT_EQ(result(4), three);
}

// The bottom half is cropped: a person sees the lower half of the picture go.
TEST(RenderStills, CropBottomCropsWhatIsBelow) {
    TempFolder folder;
    media::runFfmpeg(
        "-f lavfi -i color=red:size=16x8 -f lavfi -i color=blue:size=16x8 "
        "-filter_complex 'vstack,format=rgb24' -frames:v 1",
        folder.file("a.png"));
    expectDone({folder.file("a.png"), "-o", folder.file("b.png"), "--set", "Display Cropped=on",
                "--set", "Crop Bottom=50", "--set", "Blank Cropped=on", "--result-alpha",
                "effect"});
    media::runFfmpeg(
        "-i '" + folder.file("b.png").string() + "' -vf format=rgba -f rawvideo -pix_fmt rgba",
        folder.file("b.rgba8"));
    // Read as bare rows, the first row of this file is the top line.
    const Frame lines = media::readRawFrame(folder.file("b.rgba8"), {16, 16}, Depth::Bits8);
    EXPECT_GT(lines.row8(2)[0], 200);
    EXPECT_EQ(lines.row8(13)[0], 0);
    EXPECT_EQ(lines.row8(13)[2], 0);
    EXPECT_EQ(lines.row8(13)[3], 0);
}

TEST(RenderStills, DepthFollowsTheInputUnlessNamed) {
    TempFolder folder;
    media::writeRawFrame(folder.file("a.s214"), media::noiseFrame({6, 4}, Depth::S214, 1, true));
    const auto depthOf = [&](const char* name, const Arguments& more) {
        expectDone({folder.file("a.s214"), "-o", folder.file(name), "--size", "6x4"}, more);
        return media::openReader(folder.file(name))->info().depth;
    };
    EXPECT_EQ(depthOf("b.png", kNeutral), Depth::S214);
    EXPECT_EQ(depthOf("c.png", {"--depth", "8"}), Depth::Bits8);
}

TEST(RenderVideo, KeepsCountRateSizeAndDuration) {
    TempFolder folder;
    const std::string entries = "stream=width,height,avg_frame_rate,duration,nb_read_frames";
    for (const char* rate : {"25", "30000/1001"}) {
        media::runFfmpeg(
            media::movingPicture("96x64", rate, 1.5) + " -c:v libx264 -pix_fmt yuv420p",
            folder.file("in.mp4"));
        expectDone({folder.file("in.mp4"), "-o", folder.file("out.mp4"), "--key",
                    "Resolution=0:100 1:25"});
        EXPECT_EQ(media::probe(folder.file("out.mp4"), entries),
                  media::probe(folder.file("in.mp4"), entries));
    }
}

TEST(RenderVideo, ATruncatedClipEndsWithOne) {
    TempFolder folder;
    media::runFfmpeg(media::movingPicture("96x64", "25", 1) + " -c:v libx264",
                     folder.file("in.mp4"));
    media::cutTo(folder.file("in.mp4"), 0.5);
    const Outcome outcome = ruvex({"render", folder.file("in.mp4"), "-o", folder.file("out.mp4")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("in.mp4"), std::string::npos) << outcome.err;
    EXPECT_EQ(folder.names(), std::vector<std::string>{"in.mp4"});
}

}  // namespace
}  // namespace ruvex::cli
