// The line that a finished render ends with.

#include <filesystem>
#include <gtest/gtest.h>

#include "cli/amount_text.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

class ClosingLine : public testing::Test {
protected:
    ClosingLine() {
        media::runFfmpeg(media::movingPicture("64x48", "25", 0.2), folder.file("clip.mp4"));
    }

    Outcome render(const std::string& out, const Arguments& more = {}) const {
        Arguments line = {"render", folder.file("clip.mp4"), "-o", out};
        line.insert(line.end(), more.begin(), more.end());
        Outcome outcome = ruvex(line);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return outcome;
    }

    /// Whether `line` is "ruvex: OUT: 5 frames in 0.1 s, 50.0 a second; END." with any figures.
    static bool isLineFor(const std::string& line, const std::string& out, const std::string& end) {
        const std::string begin = "ruvex: " + out + ": 5 frames in ";
        const std::string closing = "; " + end + ".\n";
        if (!line.starts_with(begin) || !line.ends_with(closing)) return false;
        const std::string figures =
            line.substr(begin.size(), line.size() - begin.size() - closing.size());
        const bool clean = figures.find_first_not_of("0123456789. s,aecond") == std::string::npos;
        return clean && (figures.ends_with(" s") || figures.ends_with(" a second"));
    }

    files::TempFolder folder;
};

TEST_F(ClosingLine, TellsFramesTimeSpeedSizeAndFile) {
    const std::string out = folder.file("out.mkv");
    const std::string printed = render(out, {"--output-size", "32x24"}).err;
    const std::string bytes = bytesText(std::filesystem::file_size(out));
    EXPECT_TRUE(isLineFor(printed, out, "32x24, " + bytes)) << printed;
}

TEST_F(ClosingLine, AddsUpTheFilesOfASequence) {
    const std::string printed = render(folder.file("out.%d.png")).err;
    std::uintmax_t bytes = 0;
    for (int k = 0; k < 5; ++k) {
        bytes += std::filesystem::file_size(folder.file("out." + std::to_string(k) + ".png"));
    }
    EXPECT_TRUE(holds(printed, "64x48, " + bytesText(bytes) + ".")) << printed;
}

TEST_F(ClosingLine, SaysThatNothingWasLeftToRender) {
    const std::string out = folder.file("out.%d.png");
    render(out);
    EXPECT_EQ(render(out, {"--resume"}).err, "ruvex: " + out + ": nothing is left to render.\n");
}

TEST_F(ClosingLine, IsLedByTheMemoryWhenVerbose) {
    constexpr std::uintmax_t kFrameBytes = 64 * 48 * 4;
    // Without displacement the effect keeps no picture of its own.
    const std::string printed =
        render(folder.file("out.png"), {"--frames", "1", "--verbose", "--preset", "Good TV"}).err;
    EXPECT_TRUE(
        holds(printed, "ruvex: memory for frames: 2 frames, " + bytesText(2 * kFrameBytes) + ".\n"))
        << printed;
    const std::string torn =
        render(folder.file("out.png"), {"--frames", "1", "--verbose", "--preset", "Bad Colour TV"})
            .err;
    EXPECT_TRUE(holds(torn, "ruvex: memory for frames: 3 frames, ")) << torn;
    EXPECT_FALSE(holds(render(folder.file("out.mkv")).err, "memory for frames"));
}

TEST_F(ClosingLine, KnowsNoBytesOfAStream) {
    const std::string printed = render("-").err;
    EXPECT_TRUE(isLineFor(printed, "standard output", "64x48")) << printed;
}

TEST_F(ClosingLine, IsNotSaidWhenQuietOrOfAStill) {
    EXPECT_EQ(render(folder.file("out.mkv"), {"--quiet"}).err, "");
    EXPECT_EQ(render(folder.file("out.png"), {"--frames", "1"}).err, "");
    EXPECT_TRUE(
        holds(render(folder.file("out.png"), {"--frames", "1", "--verbose"}).err, "1 frame in "));
}

}  // namespace
}  // namespace ruvex::cli
