#include <fstream>
#include <gtest/gtest.h>

#include "files/read_file.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using files::TempFolder;
using media::Depth;
using media::FrameSize;

/// A numbered clip of different pictures and looks that change from frame to frame.
struct Jobs : testing::Test {
    static constexpr int kFrames = 12;

    Jobs() {
        for (int k = 0; k < kFrames; ++k) {
            media::writeRawFrame(
                folder.file("in." + std::to_string(k) + ".rgba8"),
                media::noiseFrame({60, 45}, Depth::Bits8, static_cast<unsigned>(k)));
        }
    }

    Outcome render(const std::string& output, const Arguments& more) const {
        Arguments arguments = {"render", folder.file("in.%d.rgba8"),
                               "-o",     folder.file(output),
                               "--size", "60x45",
                               "--rate", "25"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments);
    }

    std::vector<std::byte> bytes(const std::string& name) const {
        return files::readWhole(folder.file(name));
    }

    TempFolder folder;
};

const Arguments kLook = {"--preset", "Bad Colour TV", "--key", "Master Breakup=0:0 0.4:100"};

TEST_F(Jobs, TheBytesAreThoseOfOneJob) {
    for (const char* workers : {"1", "2"}) {
        const Arguments look = kLook + Arguments{"--workers", workers};
        ASSERT_EQ(render("one.mkv", look).status, 0);
        const auto one = bytes("one.mkv");
        for (const char* jobs : {"1", "2", "3", "5"}) {
            const Outcome outcome = render("many.mkv", look + Arguments{"--jobs", jobs});
            ASSERT_EQ(outcome.status, 0) << outcome.err;
            EXPECT_TRUE(bytes("many.mkv") == one) << jobs << " jobs, " << workers << " workers";
        }
    }
}

// Each frame shows others, which the effect asks for while the clip is read.
TEST_F(Jobs, FramesOfOtherTimesAreServedToEachJob) {
    const Arguments look = {"--workers", "1",     "--ends",
                            "loop",      "--key", "Play Speed=0:-150 0.2:50 0.4:300"};
    ASSERT_EQ(render("one.mkv", look).status, 0);
    for (const char* jobs : {"2", "5"}) {
        ASSERT_EQ(render("many.mkv", look + Arguments{"--jobs", jobs}).status, 0);
        EXPECT_TRUE(bytes("many.mkv") == bytes("one.mkv")) << jobs;
    }
}

TEST_F(Jobs, AVideoIsReadAtTwoPlacesAtOnce) {
    media::runFfmpeg(media::movingPicture("64x48", "25", 2) + " -c:v libx264 -g 10 -bf 2",
                     folder.file("in.mp4"));
    const auto video = [&](const std::string& output, const Arguments& more) {
        const Arguments look = {"render",    folder.file("in.mp4"),
                                "-o",        folder.file(output),
                                "--workers", "1",
                                "--ends",    "hold",
                                "--key",     "Play Speed=0:100 1:-200"};
        return ruvex(look + more).status;
    };
    ASSERT_EQ(video("one.mkv", {}), 0);
    ASSERT_EQ(video("many.mkv", {"--jobs", "3"}), 0);
    EXPECT_TRUE(bytes("many.mkv") == bytes("one.mkv"));
}

TEST_F(Jobs, FramesBeforeAFailedOneAreWrittenAndTheFailedOneIsNamed) {
    std::filesystem::resize_file(folder.file("in.7.rgba8"), 5);
    for (const char* jobs : {"1", "4"}) {
        const std::string output = std::string("out") + jobs + ".%d.rgba8";
        const Outcome outcome =
            render(output, {"--jobs", jobs, "--set", "Master Breakup=10", "--workers", "2"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.err.find("in.7.rgba8"), std::string::npos) << outcome.err;
        for (int k = 0; k < kFrames; ++k) {
            const std::string name = std::string("out") + jobs + "." + std::to_string(k) + ".rgba8";
            EXPECT_EQ(std::filesystem::exists(folder.file(name)), k < 7) << name;
        }
    }
}

TEST_F(Jobs, TheCommandThatAFailurePrintsRepeatsIt) {
    const auto in7 = folder.file("in.7.rgba8");
    std::filesystem::resize_file(in7, 5);
    const Outcome failed =
        render("it's.%d.rgba8", {"--jobs", "2", "--set", "Master Breakup=10", "--verbose"});
    const auto at = failed.err.find("To repeat it: ruvex render ");
    ASSERT_NE(at, std::string::npos) << failed.err;
    std::string command = failed.err.substr(at + 19);
    command = RUVEX_COMMAND + command.substr(0, command.find('\n'));
    EXPECT_NE(command.find("--frames 7-7"), std::string::npos) << command;
    const int again = std::system((command + " 2>/dev/null").c_str());
    EXPECT_EQ(WEXITSTATUS(again), 1) << command;
    // With the frame mended it makes just that one.
    media::writeRawFrame(in7, media::noiseFrame({60, 45}, Depth::Bits8, 7));
    std::filesystem::remove(folder.file("it's.6.rgba8"));
    EXPECT_EQ(std::system((command + " 2>/dev/null").c_str()), 0) << command;
    EXPECT_TRUE(std::filesystem::exists(folder.file("it's.7.rgba8")));
    EXPECT_FALSE(std::filesystem::exists(folder.file("it's.6.rgba8")));
}

TEST_F(Jobs, ANumberOfJobsThatCannotBeEndsWithTwo) {
    for (const char* jobs : {"0", "-1", "257", "two", ""}) {
        EXPECT_EQ(render("out.mkv", {"--jobs", jobs}).status, *jobs == '\0' ? 0 : 2) << jobs;
    }
    EXPECT_EQ(render("out.mkv", {"--quiet", "--verbose"}).status, 2);
}

}  // namespace
}  // namespace ruvex::cli
