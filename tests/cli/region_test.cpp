// What lies outside the region.

#include <algorithm>
#include <gtest/gtest.h>

#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

/// Bytes other than 0 above the lower half of a white picture, of which the lower half is rendered.
int bytesAbove(const Arguments& more) {
    const files::TempFolder folder;
    const media::FrameSize size{64, 48};
    media::Frame white(size, media::Depth::Bits8);
    std::ranges::fill(white.bytes(), std::byte{255});
    media::writeRawFrame(folder.file("in.rgba8"), white);
    Arguments line = {"render",   folder.file("in.rgba8"),
                      "-o",       folder.file("out.rgba8"),
                      "--size",   "64x48",
                      "--region", "0,0,64,24",
                      "--preset", "Good TV"};
    line.insert(line.end(), more.begin(), more.end());
    const Outcome outcome = ruvex(line);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const media::Frame result =
        media::readRawFrame(folder.file("out.rgba8"), size, media::Depth::Bits8);
    const auto bytes = result.bytes();
    const auto middle = bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2);
    return static_cast<int>(
        std::count_if(middle, bytes.end(), [](std::byte b) { return b != std::byte{0}; }));
}

TEST(OutsideTheRegion, TheResultIsZeroButForTheHaloOfTheWhiteDot) {
    EXPECT_EQ(bytesAbove({}), 0);
    EXPECT_GT(bytesAbove({"--set", "White Dot=60"}), 0);
}

TEST(OutsideTheRegion, TheHelpTellsOfTheHalo) {
    const std::string help = ruvex({"render", "--help"}).out;
    EXPECT_TRUE(holds(help, "halo of White Dot")) << help;
}

}  // namespace
}  // namespace ruvex::cli
