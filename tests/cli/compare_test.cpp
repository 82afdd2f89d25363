#include <gtest/gtest.h>

#include "cli/comparison.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/temp_folder.h"
#include "tests/media/test_clips.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Frame;
using media::FrameSize;

Frame compared(const Comparison& comparison, const Frame& before, const Frame& after) {
    Frame result(comparedSize(comparison, before.size()), before.depth());
    compareFrames(comparison, before, after, result);
    return result;
}

/// The bytes of pixel (x, y).
std::vector<std::byte> pixel(const Frame& frame, int x, int y) {
    const auto bytes = bytesPerPixel(frame.depth());
    const std::byte* from = frame.row(y) + static_cast<std::size_t>(x) * bytes;
    return {from, from + bytes};
}

std::vector<std::byte> white(Depth depth) {
    Frame frame({1, 1}, depth);
    for (int i = 0; i < media::kChannels; ++i) {
        if (depth == Depth::Bits8) {
            frame.row8(0)[i] = 255;
        } else {
            frame.row16(0)[i] = 16384;
        }
    }
    return frame.bytes();
}

TEST(Comparison, SideBySideHoldsAllOfBoth) {
    for (const Depth depth : {Depth::Bits8, Depth::S214}) {
        for (const FrameSize size : {FrameSize{1, 1}, {5, 3}, {8, 2}}) {
            const Frame before = media::noiseFrame(size, depth, 1);
            const Frame after = media::noiseFrame(size, depth, 2);
            const Frame both = compared({}, before, after);
            ASSERT_EQ(both.size(), (FrameSize{2 * size.width, size.height}));
            for (int y = 0; y < size.height; ++y) {
                for (int x = 0; x < size.width; ++x) {
                    EXPECT_EQ(pixel(both, x, y), pixel(before, x, y));
                    EXPECT_EQ(pixel(both, size.width + x, y), pixel(after, x, y));
                }
            }
        }
    }
}

TEST(Comparison, TheSplitHasALineBetweenBeforeAndAfter) {
    constexpr FrameSize kSize{10, 3};
    for (const Depth depth : {Depth::Bits8, Depth::S214}) {
        const Frame before = media::noiseFrame(kSize, depth, 1);
        const Frame after = media::noiseFrame(kSize, depth, 2);
        // The column of the line; 1.0 puts it beyond the picture.
        for (const auto& [at, line] : {std::pair(0.5, 5), {0.0, 0}, {0.24, 2}, {1.0, 10}}) {
            const Frame both = compared({Comparison::Kind::Split, at}, before, after);
            ASSERT_EQ(both.size(), kSize);
            for (int x = 0; x < kSize.width; ++x) {
                const auto wanted =
                    x == line ? white(depth) : pixel(x < line ? before : after, x, 1);
                EXPECT_EQ(pixel(both, x, 1), wanted) << at << ' ' << x;
            }
        }
    }
}

TEST(Comparison, TheLineStaysThin) {
    for (const auto& [width, line] : {std::pair(1, 1), {720, 1}, {1920, 3}, {3840, 5}}) {
        EXPECT_EQ(dividerWidth(width), line) << width;
    }
}

/// Three raw frames of noise, and commands over them.
struct NoiseClip : testing::Test {
    static constexpr FrameSize kSize{20, 12};

    NoiseClip() {
        for (int k = 0; k < 3; ++k) {
            media::writeRawFrame(file("in", k),
                                 media::noiseFrame(kSize, Depth::Bits8, static_cast<unsigned>(k)));
        }
    }

    std::filesystem::path file(const std::string& name, int k) const {
        return folder.file(name + "." + std::to_string(k) + ".rgba8");
    }

    Outcome run(const std::string& command, const std::string& output, const Arguments& more) {
        Arguments arguments = {command,     folder.file("in.%d.rgba8").string(),
                               "-o",        folder.file(output + ".%d.rgba8").string(),
                               "--size",    "20x12",
                               "--workers", "2",
                               "--preset",  "Bad Colour TV"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments);
    }

    void expectCompared(const Comparison& comparison, const Arguments& more) {
        ASSERT_EQ(run("render", "after", {}).status, 0);
        const Outcome outcome = run("compare", "both", more);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        for (int k = 0; k < 3; ++k) {
            const Frame before = media::readRawFrame(file("in", k), kSize, Depth::Bits8);
            const Frame after = media::readRawFrame(file("after", k), kSize, Depth::Bits8);
            ASSERT_NE(before, after);
            EXPECT_EQ(
                media::readRawFrame(file("both", k), comparedSize(comparison, kSize), Depth::Bits8),
                compared(comparison, before, after))
                << k;
        }
    }

    media::TempFolder folder;
};

TEST_F(NoiseClip, IsShownSideBySide) {
    expectCompared({}, {});
    expectCompared({}, {"--side-by-side"});
}

TEST_F(NoiseClip, IsShownSplit) {
    expectCompared({Comparison::Kind::Split, 0.5}, {"--split"});
    expectCompared({Comparison::Kind::Split, 0.25}, {"--split-at", "0.25"});
    expectCompared({Comparison::Kind::Split, 1.0}, {"--split", "--split-at", "1"});
}

TEST_F(NoiseClip, WrongWaysToCompareEndWithTwo) {
    for (const Arguments& more : std::vector<Arguments>{{"--split", "--side-by-side"},
                                                        {"--split-at", "0.5", "--side-by-side"},
                                                        {"--split-at", "1.5"},
                                                        {"--split-at", "-0.1"},
                                                        {"--split-at", "nan"},
                                                        {"--split-at", "half"}}) {
        const Outcome outcome = run("compare", "both", more);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_FALSE(std::filesystem::exists(file("both", 0)));
    }
}

TEST(CompareVideo, KeepsTheClipsCountRateAndHeight) {
    media::TempFolder folder;
    media::runFfmpeg(media::movingPicture("96x64", "30000/1001", 0.5) + " -c:v libx264",
                     folder.file("in.mp4"));
    const std::string entries = "stream=height,avg_frame_rate,duration,nb_read_frames";
    const Outcome outcome = ruvex({"compare", folder.file("in.mp4").string(), "-o",
                                   folder.file("out.mp4").string(), "--preset", "NightVision"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(media::probe(folder.file("out.mp4"), entries),
              media::probe(folder.file("in.mp4"), entries));
    EXPECT_EQ(media::probe(folder.file("out.mp4"), "stream=width"), "width=192\n");
}

}  // namespace
}  // namespace ruvex::cli
