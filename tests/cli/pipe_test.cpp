#include <cstdlib>
#include <gtest/gtest.h>

#include "media/frame_writer.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

/// The status of the whole line, with the command for RUVEX.
int shell(std::string line) {
    const std::string name = "RUVEX";
    for (auto at = line.find(name); at != std::string::npos; at = line.find(name)) {
        line.replace(at, name.size(), RUVEX_COMMAND);
    }
    return WEXITSTATUS(std::system(("exec 2>/dev/null; " + line).c_str()));
}

TEST(Pipes, AProgramBeforeAndOneBehind) {
    files::TempFolder folder;
    const std::string out = media::quoted(folder.file("out.mkv"));
    ASSERT_EQ(shell("ffmpeg -v error " + media::movingPicture("96x64", "30000/1001", 0.5) +
                    " -f yuv4mpegpipe - | RUVEX render - -o - --set Resolution=40 | "
                    "ffmpeg -v error -i - -c:v ffv1 " +
                    out),
              0);
    EXPECT_EQ(media::probe(folder.file("out.mkv"), "stream=width,height,pix_fmt,nb_read_frames"),
              "width=96\nheight=64\npix_fmt=yuv420p\nnb_read_frames=15\n");
}

// The same bytes whether they come through a pipe or lie in files.
TEST(Pipes, RawFramesAreRenderedAsInFiles) {
    files::TempFolder folder;
    const std::string in = folder.path().string() + "/in.";
    for (int k = 0; k < 3; ++k) {
        const auto frame = media::noiseFrame({32, 16}, media::Depth::S214, 7);
        media::openWriter(in + std::to_string(k) + ".s214",
                          {.size = {32, 16}, .depth = media::Depth::S214})
            ->write(0, frame);
    }
    const std::string rest = " --size 32x16 --workers 2 --set Resolution=50 ";
    ASSERT_EQ(shell("RUVEX render " + in + "%d.s214 -o " + in + "out.%d.s214" + rest), 0);
    ASSERT_EQ(shell("cat " + in +
                    "?.s214 | RUVEX render - -o - --input-format s214 "
                    "--output-format s214" +
                    rest + " > " + in + "all"),
              0);
    EXPECT_EQ(shell("cat " + in + "out.?.s214 | cmp - " + in + "all"), 0);
}

TEST(Pipes, WhatIsWrongIsSaidWithTheStatus) {
    files::TempFolder folder;
    const std::string out = media::quoted(folder.file("out.mp4"));
    EXPECT_EQ(shell("echo hello | RUVEX render - -o " + out), 1);
    EXPECT_EQ(shell("RUVEX render - -o " + out + " </dev/null"), 1);
    EXPECT_EQ(shell("head -c 100 /dev/zero | RUVEX render - --size 4x4 -o " + out), 1);
    EXPECT_EQ(shell("RUVEX render - -o " + out + " --input-format png"), 2);
    EXPECT_EQ(shell("RUVEX render - -o " + out + " --input-format s214"), 2);
    EXPECT_EQ(shell("RUVEX render - -o " + out + " --output-format y4m"), 2);
    EXPECT_EQ(shell("RUVEX render - -o " + out + " --size 4x4 --frames 0-9 < /dev/null"), 1);
    EXPECT_EQ(
        shell("head -c 128 /dev/zero | RUVEX render - -o " + out + " --size 4x4 --frames 0-9"), 1);
    EXPECT_EQ(shell("RUVEX level - </dev/null"), 2);
    EXPECT_EQ(shell("RUVEX presets --sheet - -o " + folder.file("s.png").string()), 2);
    EXPECT_TRUE(folder.names().empty());
    EXPECT_EQ(
        shell("head -c 128 /dev/zero | RUVEX render - -o " + out + " --size 4x4 --frames 1-1"), 0);
}

}  // namespace
}  // namespace ruvex::cli
