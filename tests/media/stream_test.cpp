#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

#include "media/streams/stream_reader.h"
#include "media/streams/stream_writer.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

/// An open file descriptor for a file.
class Opened {
public:
    explicit Opened(const std::filesystem::path& file) : fd_(open(file.c_str(), O_RDONLY)) {}
    ~Opened() { close(fd_); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

std::vector<Frame> framesOf(FrameReader& reader) {
    std::vector<Frame> frames;
    Frame frame;
    for (std::int64_t k = 0; reader.read(k, frame); ++k) {
        frames.push_back(frame);
    }
    return frames;
}

std::vector<Frame> streamOf(const std::filesystem::path& file, const ReadOptions& options = {}) {
    const Opened opened(file);
    StreamReader reader(opened.get(), "the stream", options);
    return framesOf(reader);
}

std::string complaintOfText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
    return complaintOf([&] { streamOf(file); });
}

TEST(Y4mHeader, IsReadAndWritten) {
    const std::string line = "YUV4MPEG2 W720 H576 F30000:1001 It A16:11 C420mpeg2 XCOLORRANGE=FULL";
    const Y4mHeader header = parseY4mHeader(line, "x");
    EXPECT_EQ(header.size, (FrameSize{720, 576}));
    EXPECT_EQ(header.rate, (Rational{30000, 1001}));
    EXPECT_EQ(header.pixelAspect, (Rational{16, 11}));
    EXPECT_EQ(header.fields, FieldOrder::TopFirst);
    EXPECT_EQ(header.siting, AVCHROMA_LOC_LEFT);
    EXPECT_TRUE(header.full);
    EXPECT_EQ(formatY4mHeader(header), line + "\n");
}

TEST(Y4mHeader, WhatIsNotSaidHasItsUsualValue) {
    const Y4mHeader header = parseY4mHeader("YUV4MPEG2 H3 W5 XFOO Zbar  F0:0 A0:0", "x");
    EXPECT_EQ(header.size, (FrameSize{5, 3}));
    EXPECT_FALSE(header.rate);
    EXPECT_EQ(header.pixelAspect, (Rational{1, 1}));
    EXPECT_EQ(header.fields, FieldOrder::Progressive);
    EXPECT_EQ(header.format, AV_PIX_FMT_YUV420P);
    EXPECT_EQ(header.siting, AVCHROMA_LOC_CENTER);
    EXPECT_FALSE(header.full);
}

TEST(Y4mHeader, NonsenseIsRefusedByName) {
    for (const char* line :
         {"", "YUV4MPEG", "RIFF W5 H5", "YUV4MPEG2", "YUV4MPEG2 W5", "YUV4MPEG2 W0 H5",
          "YUV4MPEG2 W-5 H5", "YUV4MPEG2 W5x H5", "YUV4MPEG2 W99999999999 H5",
          "YUV4MPEG2 W60000 H60000", "YUV4MPEG2 W5 H5 F25:0", "YUV4MPEG2 W5 H5 A1:x",
          "YUV4MPEG2 W5 H5 C999", "YUV4MPEG2 W5 H5 Im"}) {
        const std::string said = complaintOf([&] { parseY4mHeader(line, "pipe.y4m"); });
        EXPECT_NE(said.find("pipe.y4m"), std::string::npos) << line;
    }
}

TEST(Y4mHeader, WhatIsRefusedIsShownAsATerminalCanTakeIt) {
    const std::string said =
        complaintOf([] { parseY4mHeader("YUV4MPEG2 W4 H4 C\x1B[2J\xFF", "a.y4m"); });
    EXPECT_NE(said.find("'\\x1B[2J\\xFF'"), std::string::npos) << said;
    const std::string longKind(900, 'x');
    EXPECT_LT(complaintOf([&] { parseY4mHeader("YUV4MPEG2 W4 H4 C" + longKind, "a"); }).size(),
              200u);
}

class Y4mKinds : public testing::TestWithParam<const char*> {};

// Compared with the FFmpeg libraries' own reader of the same bytes.
TEST_P(Y4mKinds, AStreamHasTheFramesOfTheFile) {
    files::TempFolder folder;
    for (const char* size : {"96x64", "33x17"}) {
        runFfmpeg(
            movingPicture(size, "25", 0.2) + " -strict -1 -f yuv4mpegpipe -pix_fmt " + GetParam(),
            folder.file("a.y4m"));
        const auto reader = openReader(folder.file("a.y4m"));
        const Opened opened(folder.file("a.y4m"));
        StreamReader stream(opened.get(), "a stream", {});
        EXPECT_EQ(stream.info().rate, reader->info().rate);
        EXPECT_EQ(stream.info().depth, reader->info().depth);
        EXPECT_EQ(stream.info().chroma, reader->info().chroma);
        EXPECT_EQ(stream.info().bits, reader->info().bits);
        EXPECT_FALSE(stream.info().lastKnown);
        const auto frames = framesOf(stream);
        EXPECT_EQ(frames.size(), 5u);
        EXPECT_EQ(frames, framesOf(*reader)) << GetParam() << " " << size;
    }
}

/// What another program says of a written stream; and the picture read again is nearly the same.
TEST_P(Y4mKinds, AreWrittenAsTheyCame) {
    files::TempFolder folder;
    const std::string kind = GetParam();
    if (kind.starts_with("gray") || kind == "yuv411p") {
        GTEST_SKIP() << "is not a format that is written";
    }
    runFfmpeg(movingPicture("96x64", "30000/1001", 0.2) +
                  " -vf scale,setsar=16/11 -color_range tv -strict -1 -f yuv4mpegpipe -pix_fmt " +
                  kind,
              folder.file("a.y4m"));
    const auto reader = openReader(folder.file("a.y4m"));
    const ClipInfo& info = reader->info();
    const auto frames = framesOf(*reader);
    StreamWriter writer(folder.file("b.y4m"), {.size = info.size,
                                               .depth = info.depth,
                                               .rate = *info.rate,
                                               .pixelAspect = info.pixelAspect,
                                               .bits = info.bits,
                                               .chroma = info.chroma});
    for (const Frame& frame : frames) {
        writer.write(0, frame);
    }
    writer.finish();
    const std::string entries =
        "stream=width,height,pix_fmt,color_range,sample_aspect_ratio,r_frame_rate,nb_read_frames";
    EXPECT_EQ(probe(folder.file("b.y4m"), entries), probe(folder.file("a.y4m"), entries));
    const auto again = framesOf(*openReader(folder.file("b.y4m"), {.depth = Depth::Bits8}));
    ASSERT_EQ(again.size(), frames.size());
    const auto first = framesOf(*openReader(folder.file("a.y4m"), {.depth = Depth::Bits8}));
    double sum = 0;
    for (int i = 0; i < 96 * 64 * 4; ++i) {
        sum += std::abs(again[2].row8(0)[i] - first[2].row8(0)[i]);
    }
    EXPECT_LT(sum / (96 * 64 * 4), kind.find("444") == std::string::npos ? 4.0 : 1.0) << kind;
}

INSTANTIATE_TEST_SUITE_P(Formats, Y4mKinds,
                         testing::Values("yuv420p", "yuv422p", "yuv444p", "yuv411p", "gray",
                                         "yuv420p10le", "yuv422p10le", "yuv444p10le", "yuv420p12le",
                                         "yuv444p16le", "gray16le"));

// White and black, in limited and in full range.
TEST(Y4mStream, RangeIsTakenFromTheHeader) {
    files::TempFolder folder;
    const auto pixel = [&](const std::string& tags, int luma) {
        const char y = static_cast<char>(luma);
        std::ofstream(folder.file("a.y4m"), std::ios::binary)
            << "YUV4MPEG2 W2 H2 " << tags << "\nFRAME Ip\n"
            << std::string(4, y) << "\x80\x80";
        return int{streamOf(folder.file("a.y4m")).at(0).row8(0)[0]};
    };
    EXPECT_EQ(pixel("C420jpeg", 235), 255);
    EXPECT_EQ(pixel("C420jpeg", 16), 0);
    EXPECT_EQ(pixel("C420jpeg XCOLORRANGE=FULL", 255), 255);
    EXPECT_EQ(pixel("C420jpeg XCOLORRANGE=FULL", 0), 0);
}

// One red column among grey ones: its centre shifts with the chroma siting.
TEST(Y4mStream, SitingMovesTheColours) {
    files::TempFolder folder;
    const auto lean = [&](const std::string& kind) {
        std::string luma(16 * 16, '\x80');
        std::string blue(8 * 8, '\x80');
        std::string red = blue;
        for (std::size_t y = 0; y < 8; ++y) {
            red[y * 8 + 4] = '\xC0';
        }
        std::ofstream(folder.file("a.y4m"), std::ios::binary)
            << "YUV4MPEG2 W16 H16 C" << kind << "\nFRAME\n"
            << luma << blue << red;
        const Frame frame = streamOf(folder.file("a.y4m")).at(0);
        return frame.row8(8)[7 * 4] - frame.row8(8)[10 * 4];
    };
    EXPECT_NEAR(lean("420jpeg"), 0, 2);
    EXPECT_GT(lean("420mpeg2"), 10);
}

TEST(Y4mStream, DamageIsNamed) {
    files::TempFolder folder;
    const auto file = folder.file("a.y4m");
    const std::string header = "YUV4MPEG2 W2 H2 C444\n";
    const std::string frame = "FRAME\n" + std::string(12, 'x');
    EXPECT_EQ(complaintOfText(file, header + frame), "");
    EXPECT_NE(complaintOfText(file, ""), "");
    EXPECT_NE(complaintOfText(file, header), "");
    EXPECT_NE(complaintOfText(file, header.substr(0, 12)), "");
    EXPECT_NE(complaintOfText(file, header + "FRAMES\n" + std::string(12, 'x')), "");
    EXPECT_NE(complaintOfText(file, header + "\n"), "");
    EXPECT_NE(complaintOfText(file, header + frame + "FRAME"), "");
    EXPECT_NE(complaintOfText(file, header + frame + "FRAME\n"), "");
    EXPECT_NE(complaintOfText(file, header + frame + frame.substr(0, 13)), "");
    EXPECT_NE(complaintOfText(file, std::string(100000, 'x')), "");
}

// As 8-bit frames they are within the limit of checkFrameSize.
TEST(Y4mStream, PicturesThatTheLibrariesDoNotHoldAreRefusedByName) {
    files::TempFolder folder;
    for (const char* kind : {"420", "444p16", "mono"}) {
        const std::string said = complaintOfText(
            folder.file("a.y4m"), std::string("YUV4MPEG2 W20000 H20000 C") + kind + "\nFRAME\n");
        EXPECT_NE(said.find("the stream"), std::string::npos) << said;
        EXPECT_NE(said.find("20000x20000"), std::string::npos) << said;
    }
}

TEST(RawStream, FramesComeBackByteForByte) {
    files::TempFolder folder;
    for (const Depth depth : {Depth::Bits8, Depth::S214}) {
        const FileKind kind = depth == Depth::Bits8 ? FileKind::RawRgba8 : FileKind::RawS214;
        std::vector<Frame> frames;
        const int out = open(folder.file("a.raw").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        StreamWriter writer(out, "a pipe", {.size = {33, 17}, .depth = depth, .format = kind});
        for (unsigned k = 0; k < 4; ++k) {
            frames.push_back(noiseFrame({33, 17}, depth, k));
            writer.write(k, frames.back());
        }
        writer.finish();
        close(out);
        EXPECT_EQ(streamOf(folder.file("a.raw"), {.size = FrameSize{33, 17}, .format = kind}),
                  frames);
    }
}

TEST(RawStream, NeedsASizeAndWholeFrames) {
    files::TempFolder folder;
    std::ofstream(folder.file("a.raw")) << std::string(63, 'x');
    const auto open = [&](const ReadOptions& options) {
        return complaintOf([&] { streamOf(folder.file("a.raw"), options); });
    };
    EXPECT_NE(open({.format = FileKind::RawS214}).find("--size"), std::string::npos);
    EXPECT_NE(open({.size = FrameSize{4, 4}}).find("ends within a frame"), std::string::npos);
    EXPECT_EQ(open({.size = FrameSize{1, 1}, .format = FileKind::RawRgba8}).find("size W"),
              std::string::npos);
}

// Of frames of 64 MB, the latest eight are kept.
TEST(StreamReader, LooksBackAndAheadWithinItsMemory) {
    const int zeros = open("/dev/zero", O_RDONLY);
    StreamReader reader(zeros, "zeros", {.size = FrameSize{4096, 4096}});
    Frame frame;
    EXPECT_TRUE(reader.read(7, frame));
    EXPECT_TRUE(reader.read(0, frame));
    EXPECT_TRUE(reader.read(8, frame));
    EXPECT_TRUE(reader.read(1, frame));
    const std::string said = complaintOf([&] { reader.read(0, frame); });
    EXPECT_NE(said.find("zeros"), std::string::npos) << said;
    EXPECT_FALSE(reader.read(-1, frame));
    close(zeros);
}

TEST(StreamWriter, AReaderThatEndsEarlyIsAnError) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const std::string said = complaintOf([&] {
        StreamWriter writer(ends[1], "the pipe", {.size = {4, 4}});
        writer.write(0, noiseFrame({4, 4}, Depth::Bits8, 1));
    });
    EXPECT_NE(said.find("the pipe"), std::string::npos) << said;
    close(ends[1]);
}

TEST(StreamWriter, AFileGetsItsNameAtTheEnd) {
    files::TempFolder folder;
    {
        const auto writer = openWriter(folder.file("a.y4m"), {.size = {4, 4}});
        writer->write(0, noiseFrame({4, 4}, Depth::Bits8, 1));
        EXPECT_FALSE(std::filesystem::exists(folder.file("a.y4m")));
    }
    EXPECT_TRUE(folder.names().empty());
}

}  // namespace
}  // namespace ruvex::media
