#include <gtest/gtest.h>

#include "jobs/comparison.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using jobs::Comparison;
using media::Depth;
using media::Frame;
using media::FrameSize;

Frame compared(const Comparison& comparison, const Frame& before, const Frame& after) {
    Frame result(comparedSize(comparison, before.size()), before.depth());
    compareFrames(comparison, before, after, result);
    return result;
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

    files::TempFolder folder;
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
    files::TempFolder folder;
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
