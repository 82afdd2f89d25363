// Pictures that are too small for their Resolution.

#include <gtest/gtest.h>

#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

class SmallPicture : public testing::Test {
protected:
    /// Renders one white picture; returns what is printed on the error stream.
    std::string render(media::FrameSize size, const Arguments& more) const {
        media::Frame white(size, media::Depth::Bits8);
        std::ranges::fill(white.bytes(), std::byte{255});
        media::writeRawFrame(folder.file("in.rgba8"), white);
        Arguments line = {"render",    folder.file("in.rgba8"),
                          "-o",        folder.file("out.rgba8"),
                          "--size",    toText(size),
                          "--workers", "1"};
        line.insert(line.end(), more.begin(), more.end());
        const Outcome outcome = ruvex(line);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return outcome.err;
    }

    bool isEmpty(media::FrameSize size) const {
        return media::readRawFrame(folder.file("out.rgba8"), size, media::Depth::Bits8) ==
               media::Frame(size, media::Depth::Bits8);
    }

    static std::size_t count(const std::string& text, const std::string& part) {
        std::size_t found = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
            ++found;
        }
        return found;
    }

    files::TempFolder folder;
};

TEST_F(SmallPicture, IsWarnedOfOnceAndTheEffectsOwnLinesStay) {
    const media::FrameSize size{99, 200};
    const std::string printed = render(size, {"--set", "Resolution=1"});
    EXPECT_TRUE(isEmpty(size));
    EXPECT_EQ(count(printed, "ruvex: warning:"), 1u) << printed;
    EXPECT_TRUE(holds(printed,
                      "At a Resolution below 1.02, nothing is left of pictures of 99x200: "
                      "such frames are black and transparent."))
        << printed;
    EXPECT_GE(count(printed, "bogus"), 1u) << printed;
}

TEST_F(SmallPicture, IsWarnedOfWhereKeysGoAsLow) {
    EXPECT_EQ(count(render({50, 50}, {"--key", "Resolution=0:100 5:1"}), "warning:"), 1u);
    EXPECT_EQ(count(render({50, 50}, {"--key", "Resolution=0:100 5:2"}), "warning:"), 0u);
}

TEST_F(SmallPicture, WithAWholePixelIsNotWarnedOf) {
    EXPECT_EQ(render({100, 100}, {"--set", "Resolution=1"}), "");
    EXPECT_FALSE(isEmpty({100, 100}));
    EXPECT_EQ(count(render({300, 300}, {"--set", "Resolution=0.5"}), "below 1, "), 1u);
    EXPECT_TRUE(isEmpty({300, 300}));
}

}  // namespace
}  // namespace ruvex::cli
