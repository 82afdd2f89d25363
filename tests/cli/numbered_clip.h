// A clip whose frames carry their number.

#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <vector>

#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {

/// Raw frames 0 to `count` - 1: red is the frame's number, alpha is white. Rendered without
/// breakup, as a disc, which shows no traces of winding.
class NumberedClip : public testing::Test {
protected:
    static constexpr media::FrameSize kSize{6, 4};

    void make(int count) {
        for (int k = 0; k < count; ++k) {
            media::writeRawFrame(folder.file("in." + std::to_string(k) + ".rgba8"), picture(k));
        }
    }

    static media::Frame picture(int number) {
        media::Frame frame(kSize, media::Depth::Bits8);
        for (std::size_t i = 0; i < frame.bytes().size(); i += media::kChannels) {
            frame.bytes()[i] = static_cast<std::byte>(number);
            frame.bytes()[i + 3] = std::byte{255};
        }
        return frame;
    }

    void render(const Arguments& more) {
        Arguments arguments = {"render", folder.file("in.%d.rgba8"),
                               "-o",     folder.file("out.%d.rgba8"),
                               "--size", "6x4",
                               "--set",  "Master Breakup=0",
                               "--set",  "Breakup Variation=0",
                               "--set",  "Play Mode=DVD"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = ruvex(arguments);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
    }

    /// The number that a rendered frame shows; nothing if it is blank. Fails on any other picture.
    std::optional<int> shown(int k) const {
        const auto frame = media::readRawFrame(folder.file("out." + std::to_string(k) + ".rgba8"),
                                               kSize, media::Depth::Bits8);
        if (frame == media::Frame(kSize, media::Depth::Bits8)) return std::nullopt;
        const int number = frame.row8(0)[0];
        EXPECT_EQ(frame, picture(number)) << k;
        return number;
    }

    files::TempFolder folder;
};

}  // namespace ruvex::cli
