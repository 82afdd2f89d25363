#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

#include "files/whole_file.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using namespace std::chrono_literals;

/// Until the result's temporary file is there: then the signals are caught and frames are rendered.
bool waitForStart(const files::TempFolder& folder, std::size_t files) {
    for (int i = 0; i < 1000; ++i) {
        if (folder.names().size() > files) {
            return true;
        }
        std::this_thread::sleep_for(10ms);
    }
    return false;
}

class StopSignal : public testing::TestWithParam<int> {};

TEST_P(StopSignal, EndsARenderAndLeavesNothing) {
    files::TempFolder folder;
    const media::FrameSize size{720, 576};
    const auto frame = media::noiseFrame(size, media::Depth::Bits8, 1);
    media::writeRawFrame(folder.file("in.0.rgba8"), frame);
    // A long clip of one picture under many names.
    for (int k = 1; k < 400; ++k) {
        std::filesystem::create_hard_link(folder.file("in.0.rgba8"),
                                          folder.file("in." + std::to_string(k) + ".rgba8"));
    }
    RunningCommand command({"render", folder.file("in.%d.rgba8"), "-o", folder.file("out.mkv"),
                            "--size", "720x576", "--set", "Resolution=50"});
    ASSERT_TRUE(waitForStart(folder, 400));
    const auto sent = std::chrono::steady_clock::now();
    command.send(GetParam());
    const Outcome outcome = command.wait();
    EXPECT_LT(std::chrono::steady_clock::now() - sent, 5s);
    EXPECT_EQ(outcome.status, 130) << outcome.err;
    EXPECT_NE(outcome.err.find("stopped"), std::string::npos) << outcome.err;
    EXPECT_EQ(folder.names().size(), 400u);
}

TEST_P(StopSignal, EndsTheRenderOfASingleFrameToo) {
    files::TempFolder folder;
    media::writeRawFrame(folder.file("in.rgba8"), media::Frame({4000, 4000}, media::Depth::Bits8));
    RunningCommand command({"render", folder.file("in.rgba8"), "-o", folder.file("out.mkv"),
                            "--size", "4000x4000", "--set", "Resolution=99", "--workers", "1"});
    ASSERT_TRUE(waitForStart(folder, 1));
    command.send(GetParam());
    EXPECT_EQ(command.wait().status, 130);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"in.rgba8"});
}

TEST_P(StopSignal, EndsTheWaitForAnInputThatIsSilent) {
    files::TempFolder folder;
    int input[2];
    ASSERT_EQ(pipe2(input, O_CLOEXEC), 0);
    RunningCommand command({"render", "-", "-o", folder.file("out.mkv"), "--size", "8x8"},
                           input[0]);
    const media::Frame frame({8, 8}, media::Depth::Bits8);
    ASSERT_EQ(files::writeAll(input[1], frame.bytes()), 0);
    ASSERT_TRUE(waitForStart(folder, 0));
    EXPECT_FALSE(command.endsWithin(200ms));
    command.send(GetParam());
    EXPECT_TRUE(command.endsWithin(2s));
    close(input[1]);
    close(input[0]);
    EXPECT_EQ(command.wait().status, 130);
    EXPECT_TRUE(folder.names().empty());
}

TEST_P(StopSignal, EndsTheWaitForAReaderThatTakesNothing) {
    files::TempFolder folder;
    // Its frame is larger than a pipe.
    media::writeRawFrame(folder.file("in.rgba8"), media::Frame({400, 400}, media::Depth::Bits8));
    RunningCommand command({"render", folder.file("in.rgba8"), "-o", "-", "--output-format",
                            "rgba8", "--size", "400x400", "--set", "Master Breakup=0"});
    EXPECT_FALSE(command.endsWithin(1s));
    command.send(GetParam());
    EXPECT_TRUE(command.endsWithin(2s));
    EXPECT_EQ(command.wait().status, 130);
}

// As nohup starts programs.
TEST(HangUp, DoesNotEndACommandThatIgnoresIt) {
    files::TempFolder folder;
    int input[2];
    ASSERT_EQ(pipe2(input, O_CLOEXEC), 0);
    const auto before = std::signal(SIGHUP, SIG_IGN);
    RunningCommand command({"render", "-", "-o", folder.file("out.mkv"), "--size", "8x8"},
                           input[0]);
    std::signal(SIGHUP, before);
    const media::Frame frame({8, 8}, media::Depth::Bits8);
    ASSERT_EQ(files::writeAll(input[1], frame.bytes()), 0);
    ASSERT_TRUE(waitForStart(folder, 0));
    command.send(SIGHUP);
    EXPECT_FALSE(command.endsWithin(500ms));
    ASSERT_EQ(files::writeAll(input[1], frame.bytes()), 0);
    close(input[1]);
    close(input[0]);
    const Outcome outcome = command.wait();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(media::probe(folder.file("out.mkv"), "stream=nb_read_frames"), "nb_read_frames=2\n");
}

INSTANTIATE_TEST_SUITE_P(Signals, StopSignal, testing::Values(SIGINT, SIGTERM, SIGHUP));

/// A frame that takes far longer than a stop: a name, its number, and options.
struct LongFrame {
    const char* name;
    const char* number;
    Arguments options;
};

class StopOfALongFrame : public testing::TestWithParam<LongFrame> {};

TEST_P(StopOfALongFrame, IsAnsweredWithinTwoSeconds) {
    const LongFrame& frame = GetParam();
    files::TempFolder folder;
    const std::string picture = "in." + std::string(frame.number) + ".rgba8";
    media::writeRawFrame(folder.file(picture),
                         media::noiseFrame({320, 240}, media::Depth::Bits8, 1));
    Arguments arguments = {"render",   folder.file("in.%d.rgba8"),
                           "-o",       folder.file("out.mkv"),
                           "--size",   "320x240",
                           "--frames", frame.number};
    arguments.insert(arguments.end(), frame.options.begin(), frame.options.end());
    RunningCommand command(arguments);
    ASSERT_TRUE(waitForStart(folder, 1));
    std::this_thread::sleep_for(200ms);
    const auto sent = std::chrono::steady_clock::now();
    command.send(SIGINT);
    const Outcome outcome = command.wait();
    EXPECT_LT(std::chrono::steady_clock::now() - sent, 2s);
    EXPECT_EQ(outcome.status, 130) << "the frame was faster than the stop: " << outcome.err;
    EXPECT_EQ(folder.names(), std::vector<std::string>{picture});
}

INSTANTIATE_TEST_SUITE_P(
    Frames, StopOfALongFrame,
    testing::Values(
        LongFrame{"Lines",
                  "0",
                  {"--pixel-aspect", "10", "--project-size", "65536x65536", "--workers", "240",
                   "--set", "Master Breakup=90", "--set", "Breakup Variation=0", "--set",
                   "Line Threshold=0", "--set", "Line Spacing=1", "--set", "Line Angle=45"}},
        LongFrame{"Levels", "16777214", {"--preset", "Bad Colour TV"}},
        LongFrame{"Walks", "16777214", {"--ends", "loop",
                                        "--rate", "16",
                                        "--key",  "Play Speed=0:101 1:50 2000000:99",
                                        "--key",  "Breakup Speed=0:10 1:50 1000000:20",
                                        "--key",  "Breakup Variation=0:10 1:20",
                                        "--key",  "Master Breakup=0:90 1:99 1000000:95",
                                        "--key",  "Edge Speed=0:10 1:20",
                                        "--key",  "Ghosting Speed=0:10 1:20",
                                        "--key",  "Line Speed Max=0:10 1:20",
                                        "--key",  "Line Threshold=0:0 1:1 1000000:2",
                                        "--key",  "Vert Roll Threshold=0:0 1:1 1000000:2",
                                        "--key",  "Vert Roll Speed Max=0:0 1:1 1000000:2"}}),
    [](const auto& given) { return std::string(given.param.name); });

}  // namespace
}  // namespace ruvex::cli
