#include "jobs/comparison.h"

#include <gtest/gtest.h>

#include "tests/media/test_clips.h"

namespace ruvex::jobs {
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

}  // namespace
}  // namespace ruvex::jobs
