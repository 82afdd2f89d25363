// Colours divided and multiplied by alpha, at both depths.

#include "media/pixels/alpha.h"

#include <cmath>
#include <gtest/gtest.h>

#include "media/av_library.h"
#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/pixels/float_lines.h"
#include "media/pixels/frame_convert.h"
#include "media/pixels/plane_line.h"
#include "media/stills/still_file.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

/// Every alpha of 8 bits with every colour: x is alpha, the line from the bottom is the colour.
Frame everyAlpha() {
    Frame frame({256, 256}, Depth::Bits8);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            std::uint8_t* pixel = frame.row8(y) + std::ptrdiff_t{x} * kChannels;
            pixel[0] = static_cast<std::uint8_t>(y);
            pixel[1] = static_cast<std::uint8_t>(255 - y);
            pixel[2] = static_cast<std::uint8_t>(y / 2);
            pixel[kAlpha] = static_cast<std::uint8_t>(x);
        }
    }
    return frame;
}

/// The same with premultiplied colours.
Frame everyAlphaMultiplied() {
    Frame frame = everyAlpha();
    for (int y = 0; y < 256; ++y) {
        for (int i = 0; i < 256 * kChannels; ++i) {
            const int alpha = i / kChannels;
            if (i % kChannels != kAlpha) {
                frame.row8(y)[i] =
                    static_cast<std::uint8_t>(std::lround(frame.row8(y)[i] * alpha / 255.0));
            }
        }
    }
    return frame;
}

// The stored floats are the exact products, not products that were rounded to 8 or to 14 bits.
TEST(Alpha, Of8BitsIsExactInFloats) {
    const Frame frame = everyAlpha();
    const AvFrame picture = newPicture(256, 256, AV_PIX_FMT_GBRAPF32LE);
    packFloat(frame, AlphaForm::Premultiplied, *picture);
    constexpr int kPlane[] = {2, 0, 1, 3};
    for (int y = 0; y < 256; ++y) {
        for (int i = 0; i < 256 * kChannels; ++i) {
            const int channel = i % kChannels;
            const int x = i / kChannels;
            const double factor = channel == kAlpha || x == 0 ? 1 : x / 255.0;
            const double exact = factor * frame.row8(y)[i] / 255.0;
            const float stored =
                planeLine<float>(*picture, kPlane[channel], chainRowOfLine(y, 256))[x];
            ASSERT_NEAR(stored, exact, 1e-7) << "alpha " << x << ", colour " << y;
        }
    }
}

TEST(Alpha, Of8BitsSurvivesExr) {
    const files::TempFolder folder;
    const Frame frame = everyAlpha();
    writeStill(folder.file("a.exr"), frame);
    EXPECT_EQ(readStill(folder.file("a.exr")).frame, convertDepth(frame, Depth::S214));
    EXPECT_EQ(readStill(folder.file("a.exr"), {}, Depth::Bits8).frame, frame);
}

// An 8-bit file with premultiplied colours, rendered at 16 bits into EXR: no colour is rounded to 8
// bits on the way.
TEST(Alpha, Of8BitPremultipliedFilesIsDividedInTheDepthOfTheFrames) {
    const files::TempFolder folder;
    const Frame stored = everyAlphaMultiplied();
    const double step = 1.0 / kWhiteS214;
    for (const char* name : {"a.png", "a.tif", "a.rgba8", "a.mkv"}) {
        const auto writer = openWriter(folder.file(name), {.size = {256, 256}});
        writer->write(0, stored);
        writer->finish();
        ReadOptions options{.depth = Depth::S214, .alpha = AlphaForm::Premultiplied};
        if (std::string(name) == "a.rgba8") options.size = FrameSize{256, 256};
        const auto reader = openReader(folder.file(name), options);
        EXPECT_EQ(reader->info().depth, Depth::Bits8);
        Frame frame;
        ASSERT_TRUE(reader->read(0, frame));
        ASSERT_EQ(frame.depth(), Depth::S214);
        for (int y = 0; y < 256; ++y) {
            for (int i = 0; i < 256 * kChannels; ++i) {
                const int alpha = i / kChannels;
                if (i % kChannels == kAlpha || alpha == 0) continue;
                const double exact = stored.row8(y)[i] / static_cast<double>(alpha);
                ASSERT_NEAR(frame.row16(y)[i] * step, exact, 0.5001 * step)
                    << name << ", alpha " << alpha;
            }
        }
    }
}

TEST(Alpha, IsMultipliedWithOneRounding) {
    Frame deep({1, 1}, Depth::S214);
    const std::int16_t pixel[] = {12345, 6789, 16384, 8192};
    std::copy(std::begin(pixel), std::end(pixel), deep.row16(0));
    const Frame reduced = premultiplied(deep, Depth::Bits8);
    ASSERT_EQ(reduced.depth(), Depth::Bits8);
    EXPECT_EQ(reduced.row8(0)[0], 96);   // 12345 / 16384 * 255 / 2 = 96.07
    EXPECT_EQ(reduced.row8(0)[1], 53);   // 52.83
    EXPECT_EQ(reduced.row8(0)[2], 128);  // 127.5
    Frame shallow({1, 1}, Depth::Bits8);
    const std::uint8_t bytes[] = {3, 255, 0, 85};
    std::copy(std::begin(bytes), std::end(bytes), shallow.row8(0));
    const Frame raised = premultiplied(shallow, Depth::S214);
    EXPECT_EQ(raised.row16(0)[0], 64);    // 1 / 255 * 16384 = 64.25
    EXPECT_EQ(raised.row16(0)[1], 5461);  // 16384 / 3
    EXPECT_EQ(raised.row16(0)[3], 5461);
}

TEST(Alpha, DividesAndMultipliesBack) {
    for (const Depth depth : {Depth::Bits8, Depth::S214}) {
        const Frame stored = convertDepth(everyAlphaMultiplied(), depth);
        EXPECT_EQ(premultiplied(unpremultiplied(stored, depth), depth), stored);
    }
}

}  // namespace
}  // namespace ruvex::media
