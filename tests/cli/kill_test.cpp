// A render that is killed at any moment, with no chance to clean up.

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <signal.h>
#include <thread>

#include "files/read_file.h"
#include "files/whole_file.h"
#include "media/frame_reader.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using Clock = std::chrono::steady_clock;
using Bytes = std::vector<std::byte>;

#ifdef RUVEX_SANITIZED
constexpr int kKills = 20;
#else
constexpr int kKills = 200;
#endif

struct Killed : testing::Test {
    static constexpr int kFrames = 20;
    static constexpr media::FrameSize kSize{48, 36};

    Killed() {
        for (int k = 0; k < kFrames; ++k) {
            media::writeRawFrame(
                folder.file("in." + std::to_string(k) + ".rgba8"),
                media::noiseFrame(kSize, media::Depth::Bits8, static_cast<unsigned>(k)));
        }
    }

    Arguments command(const std::string& output, const Arguments& more = {}) const {
        Arguments all = {"render",    folder.file("in.%d.rgba8"),
                         "-o",        folder.file(output),
                         "--size",    "48x36",
                         "--preset",  "Bad Colour TV",
                         "--workers", "1",
                         "--jobs",    "2"};
        all.insert(all.end(), more.begin(), more.end());
        return all;
    }

    /// How long the whole of it takes.
    Clock::duration timeOf(const Arguments& arguments) const {
        const auto start = Clock::now();
        EXPECT_EQ(ruvex(arguments).status, 0);
        return Clock::now() - start;
    }

    /// Runs the command and kills it somewhere in that time; whether it had come to its end.
    bool runAndKill(const Arguments& arguments, Clock::duration within) {
        RunningCommand running(arguments);
        std::uniform_int_distribution<std::int64_t> moment(0, within.count());
        std::this_thread::sleep_for(Clock::duration(moment(random)));
        running.send(SIGKILL);
        return running.wait().status == 0;
    }

    std::string outName(int k) const { return "out." + std::to_string(k) + ".png"; }

    /// The pictures that have their final names; each must be as in `whole`.
    int countWhole(const std::vector<Bytes>& whole) const {
        int count = 0;
        for (int k = 0; k < kFrames; ++k) {
            if (!std::filesystem::exists(folder.file(outName(k)))) continue;
            EXPECT_EQ(files::readWhole(folder.file(outName(k))), whole[static_cast<std::size_t>(k)])
                << k;
            ++count;
        }
        return count;
    }

    void removeResults() const {
        for (const std::string& name : folder.names()) {
            if (!name.starts_with("in.")) std::filesystem::remove(folder.file(name));
        }
    }

    files::TempFolder folder;
    std::mt19937 random{20240607};
};

TEST_F(Killed, LeavesNoBrokenPictureAndIsGoneOnWith) {
    // The shorter of two runs: where other work has held up the first, kills would come too late.
    const auto first = timeOf(command("out.%d.png"));
    const auto within = std::min(first, timeOf(command("out.%d.png")));
    std::vector<Bytes> whole;
    for (int k = 0; k < kFrames; ++k) {
        whole.push_back(files::readWhole(folder.file(outName(k))));
    }
    removeResults();
    int interrupted = 0;
    int partly = 0;
    int kills = 0;
    // On a busy machine the program may be slower than it was at first, so that all kills come
    // before its first picture: then some more.
    for (; kills < kKills || (partly == 0 && kills < 10 * kKills); ++kills) {
        interrupted += runAndKill(command("out.%d.png", {"--resume"}), within) ? 0 : 1;
        const int count = countWhole(whole);
        partly += count > 0 && count < kFrames ? 1 : 0;
        if (count == kFrames || kills % 20 == 19) removeResults();
    }
    // Most of the kills have to hit, and some of them between two pictures.
    EXPECT_GT(interrupted, kills / 2);
    EXPECT_GT(partly, 0);
    runAndKill(command("out.%d.png", {"--resume"}), within / 2);
    // What was left behind is taken away once it is certain that nobody writes it.
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    EXPECT_EQ(ruvex(command("out.%d.png", {"--resume"})).status, 0);
    EXPECT_EQ(countWhole(whole), kFrames);
    EXPECT_EQ(folder.names().size(), std::size_t{2 * kFrames});
}

TEST_F(Killed, KeepsTheEarlierVideoUntilTheNewOneIsComplete) {
    const auto within = timeOf(command("out.mkv"));
    const Bytes whole = files::readWhole(folder.file("out.mkv"));
    ASSERT_EQ(ruvex(command("out.mkv", {"--set", "Resolution=20"})).status, 0);
    const Bytes earlier = files::readWhole(folder.file("out.mkv"));
    ASSERT_NE(earlier, whole);
    for (int i = 0; i < kKills / 10; ++i) {
        files::writeWhole(folder.file("out.mkv"), earlier);
        const bool done = runAndKill(command("out.mkv"), within);
        const Bytes now = files::readWhole(folder.file("out.mkv"));
        EXPECT_TRUE(now == whole || (!done && now == earlier));
    }
}

}  // namespace
}  // namespace ruvex::cli
