#include <fstream>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

Frame readOne(const std::filesystem::path& file, const ReadOptions& options = {},
              std::int64_t number = 0) {
    Frame frame;
    EXPECT_TRUE(openReader(file, options)->read(number, frame));
    return frame;
}

TEST(RawFrames, ComeBackByteForByte) {
    files::TempFolder folder;
    for (const FrameSize size : kStillSizes) {
        const Frame frame8 = noiseFrame(size, Depth::Bits8, 1);
        const Frame frame16 = noiseFrame(size, Depth::S214, 2);
        openWriter(folder.file("a.rgba8"), {.size = size})->write(0, frame8);
        openWriter(folder.file("a.s214"), {.size = size, .depth = Depth::S214})->write(0, frame16);
        EXPECT_EQ(readOne(folder.file("a.rgba8"), {.size = size}), frame8);
        EXPECT_EQ(readOne(folder.file("a.s214"), {.size = size}), frame16);
    }
}

TEST(RawFrames, TheFirstRowOfTheFileIsChainRowZero) {
    files::TempFolder folder;
    std::ofstream(folder.file("a.rgba8"), std::ios::binary) << "RGBAxxxx";
    const Frame frame = readOne(folder.file("a.rgba8"), {.size = FrameSize{1, 2}});
    EXPECT_EQ(frame.row8(0)[0], 'R');
    EXPECT_EQ(frame.row8(1)[0], 'x');
}

TEST(RawFrames, WordsAreLittleEndian) {
    files::TempFolder folder;
    std::ofstream(folder.file("a.s214"), std::ios::binary)
        << std::string("\0\x40\1\0\0\x80\xFF\xFF", 8);
    const Frame frame = readOne(folder.file("a.s214"), {.size = FrameSize{1, 1}});
    EXPECT_EQ(frame.row16(0)[0], 16384);
    EXPECT_EQ(frame.row16(0)[1], 1);
    EXPECT_EQ(frame.row16(0)[2], -32768);
    EXPECT_EQ(frame.row16(0)[3], -1);
}

TEST(RawFrames, AWrongLengthSaysBothLengths) {
    files::TempFolder folder;
    std::ofstream(folder.file("a.rgba8"), std::ios::binary) << std::string(63, 'x');
    const std::string said = complaintOf([&] {
        readOne(folder.file("a.rgba8"), {.size = FrameSize{4, 4}});
    });
    EXPECT_NE(said.find("63"), std::string::npos) << said;
    EXPECT_NE(said.find("64"), std::string::npos) << said;
    EXPECT_NE(said.find("a.rgba8"), std::string::npos) << said;
}

TEST(RawFrames, NeedASizeThatTheChainCanHold) {
    files::TempFolder folder;
    std::ofstream(folder.file("a.rgba8")) << "x";
    const auto open = [&](std::optional<FrameSize> size) {
        return complaintOf([&] { openReader(folder.file("a.rgba8"), {.size = size}); });
    };
    EXPECT_NE(open(std::nullopt), "");
    EXPECT_NE(open(FrameSize{0, 4}), "");
    EXPECT_NE(open(FrameSize{40000, 40000}), "");
}

TEST(RawFrames, TheEndingSaysTheDepth) {
    files::TempFolder folder;
    const Frame frame = noiseFrame({3, 2}, Depth::Bits8, 1);
    openWriter(folder.file("a.s214"), {.size = {3, 2}})->write(0, frame);
    EXPECT_EQ(readOne(folder.file("a.s214"), {.size = FrameSize{3, 2}, .depth = Depth::Bits8}),
              frame);
}

TEST(Png, EightBitsComeBackExactly) {
    files::TempFolder folder;
    for (const FrameSize size : kStillSizes) {
        const Frame frame = noiseFrame(size, Depth::Bits8, 3);
        openWriter(folder.file("a.png"), {.size = size})->write(0, frame);
        EXPECT_EQ(readOne(folder.file("a.png")), frame);
    }
}

TEST(Png, SixteenBitsComeBackExactlyFromBlackToWhite) {
    files::TempFolder folder;
    for (const FrameSize size : kStillSizes) {
        const Frame frame = noiseFrame(size, Depth::S214, 4, true);
        openWriter(folder.file("a.png"), {.size = size, .depth = Depth::S214})->write(0, frame);
        EXPECT_EQ(readOne(folder.file("a.png")), frame);
    }
}

TEST(Png, OvershootIsHeldAtBlackAndWhite) {
    files::TempFolder folder;
    Frame frame({2, 1}, Depth::S214);
    frame.row16(0)[0] = 20000;
    frame.row16(0)[1] = -5;
    writeStill(folder.file("a.png"), frame);
    const Frame back = readStill(folder.file("a.png")).frame;
    EXPECT_EQ(back.row16(0)[0], 16384);
    EXPECT_EQ(back.row16(0)[1], 0);
}

// Red at the top, blue at the bottom, made by another program.
TEST(Png, TheTopLineIsTheLastChainRow) {
    files::TempFolder folder;
    runFfmpeg(
        "-f lavfi -i color=red:size=4x2 -f lavfi -i color=blue:size=4x2 "
        "-filter_complex 'vstack,format=rgb24' -frames:v 1",
        folder.file("a.png"));
    const Frame frame = readOne(folder.file("a.png"));
    ASSERT_EQ(frame.size(), (FrameSize{4, 4}));
    EXPECT_GT(frame.row8(3)[0], 200);
    EXPECT_LT(frame.row8(3)[2], 50);
    EXPECT_LT(frame.row8(0)[0], 50);
    EXPECT_GT(frame.row8(0)[2], 200);
}

/// A ramp, written by another program in a pixel format and read here.
Frame rampAs(const files::TempFolder& folder, const std::string& format) {
    const Frame ramp = noiseFrame({31, 9}, Depth::S214, 5, true);
    writeStill(folder.file("ramp.png"), ramp);
    runFfmpeg("-i '" + folder.file("ramp.png").string() + "' -pix_fmt " + format,
              folder.file("b.png"));
    return readStill(folder.file("b.png")).frame;
}

TEST(Png, AlphaIsWhiteWhereTheFileHasNone) {
    files::TempFolder folder;
    for (const char* format : {"rgb24", "gray", "monob"}) {
        const Frame frame = rampAs(folder, format);
        ASSERT_EQ(frame.depth(), Depth::Bits8) << format;
        for (int x = 0; x < 31; ++x) {
            EXPECT_EQ(frame.row8(4)[x * 4 + 3], 255) << format;
        }
    }
    for (const char* format : {"rgb48be", "gray16be"}) {
        const Frame frame = rampAs(folder, format);
        ASSERT_EQ(frame.depth(), Depth::S214) << format;
        EXPECT_EQ(frame.row16(4)[3], 16384) << format;
    }
}

TEST(Png, EveryKindOfPngIsReadExactly) {
    files::TempFolder folder;
    for (const char* format : {"gray", "ya8", "rgb24", "rgba", "pal8", "monob"}) {
        rampAs(folder, format);
        runFfmpeg("-i '" + folder.file("b.png").string() + "' -vf vflip -pix_fmt rgba -f rawvideo",
                  folder.file("b.rgba8"));
        const Frame expected = readRawFrame(folder.file("b.rgba8"), {31, 9}, Depth::Bits8);
        EXPECT_EQ(readStill(folder.file("b.png")).frame, expected) << format;
    }
}

TEST(Png, DeepPicturesAreReadExactly) {
    files::TempFolder folder;
    const Frame ramp = noiseFrame({31, 9}, Depth::S214, 5, true);
    for (const char* format : {"rgba64be", "rgb48be"}) {
        const Frame back = rampAs(folder, format);
        for (int i = 0; i < 31 * 4; ++i) {
            const bool alpha = i % 4 == 3 && std::string(format) == "rgb48be";
            EXPECT_EQ(back.row16(2)[i], alpha ? 16384 : ramp.row16(2)[i]) << format << " " << i;
        }
    }
}

TEST(Png, CutOffAnywhereItIsRefused) {
    files::TempFolder folder;
    writeStill(folder.file("a.png"), noiseFrame({40, 30}, Depth::Bits8, 6));
    const auto whole = std::filesystem::file_size(folder.file("a.png"));
    for (std::uintmax_t size = whole - 1; size > 0; size = size * 2 / 3) {
        std::filesystem::resize_file(folder.file("a.png"), size);
        const std::string said = complaintOf([&] { readStill(folder.file("a.png")); });
        EXPECT_NE(said.find("a.png"), std::string::npos) << size;
    }
}

TEST(Png, ADamagedByteIsNoticed) {
    files::TempFolder folder;
    writeStill(folder.file("a.png"), noiseFrame({40, 30}, Depth::Bits8, 6));
    std::fstream file(folder.file("a.png"), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(2000);
    file << "damage";
    file.close();
    EXPECT_NE(complaintOf([&] { readStill(folder.file("a.png")); }), "");
}

TEST(Png, OtherFilesAndFoldersAreRefused) {
    files::TempFolder folder;
    std::ofstream(folder.file("a.png")) << "not a picture at all, only a line of text";
    std::filesystem::create_directory(folder.file("b.png"));
    for (const char* name : {"a.png", "b.png", "none.png"}) {
        const std::string said = complaintOf([&] { openReader(folder.file(name)); });
        EXPECT_NE(said.find(name), std::string::npos) << name;
    }
}

TEST(Png, KeepsThePixelAspect) {
    files::TempFolder folder;
    writeStill(folder.file("a.png"), noiseFrame({4, 4}, Depth::Bits8, 6),
               {.pixelAspect = {16, 11}});
    EXPECT_EQ(readStill(folder.file("a.png")).pixelAspect, (Rational{16, 11}));
}

TEST(Sequence, FramesAreTheFilesWithTheirNumbers) {
    files::TempFolder folder;
    const auto pattern = folder.file("s.%03d.png");
    const auto writer = openWriter(pattern, {.size = {5, 4}});
    for (int k = 7; k <= 9; ++k) {
        writer->write(k, noiseFrame({5, 4}, Depth::Bits8, static_cast<unsigned>(k)));
    }
    writer->finish();
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"s.007.png", "s.008.png", "s.009.png"}));

    const auto reader = openReader(pattern);
    EXPECT_EQ(reader->info().first, 7);
    EXPECT_EQ(reader->info().last, 9);
    EXPECT_FALSE(reader->info().rate);
    Frame frame;
    for (const int k : {9, 7, 8}) {
        ASSERT_TRUE(reader->read(k, frame));
        EXPECT_EQ(frame, noiseFrame({5, 4}, Depth::Bits8, static_cast<unsigned>(k)));
    }
    EXPECT_FALSE(reader->read(6, frame));
    EXPECT_FALSE(reader->read(10, frame));
}

TEST(Sequence, AMissingOrAnotherSizeFrameIsNamed) {
    files::TempFolder folder;
    const auto writer = openWriter(folder.file("s.%d.png"), {.size = {5, 4}});
    writer->write(1, noiseFrame({5, 4}, Depth::Bits8, 1));
    writer->write(4, noiseFrame({4, 5}, Depth::Bits8, 1));
    const auto reader = openReader(folder.file("s.%d.png"));
    Frame frame;
    EXPECT_NE(complaintOf([&] { reader->read(2, frame); }).find("s.2.png"), std::string::npos);
    EXPECT_NE(complaintOf([&] { reader->read(4, frame); }).find("s.4.png"), std::string::npos);
}

TEST(Sequence, ASingleNameHoldsOneFrameOnly) {
    files::TempFolder folder;
    const auto writer = openWriter(folder.file("a.png"), {.size = {5, 4}});
    writer->write(3, noiseFrame({5, 4}, Depth::Bits8, 1));
    EXPECT_NE(complaintOf([&] { writer->write(4, noiseFrame({5, 4}, Depth::Bits8, 1)); }), "");
}

TEST(Depth, IsDeliveredAsAsked) {
    files::TempFolder folder;
    writeStill(folder.file("a.png"), noiseFrame({5, 4}, Depth::Bits8, 1));
    EXPECT_EQ(readOne(folder.file("a.png"), {.depth = Depth::S214}).depth(), Depth::S214);
    EXPECT_EQ(openReader(folder.file("a.png"), {.depth = Depth::S214})->info().depth, Depth::Bits8);
    EXPECT_NE(complaintOf([&] {
                  openReader(folder.file("a.png"), {.size = FrameSize{5, 4}});
              }),
              "");
}

}  // namespace
}  // namespace ruvex::media
