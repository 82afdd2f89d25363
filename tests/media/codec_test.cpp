#include <cmath>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/storage_choice.h"
#include "media/video/video_codec.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

/// A frame of one colour.
Frame plainFrame(FrameSize size, std::vector<std::int16_t> pixel) {
    Frame frame(size, Depth::S214);
    for (int i = 0; i < size.width * size.height * kChannels; ++i) {
        frame.row16(0)[i] = pixel[static_cast<std::size_t>(i % kChannels)];
    }
    return frame;
}

TEST(VideoCodec, IsChosenByEndingOrName) {
    const auto nameOf = [](const char* file, const std::optional<std::string>& name = {}) {
        const VideoCodec* codec = findVideoCodec(file, name);
        return codec == nullptr ? std::string() : std::string(codec->name);
    };
    EXPECT_EQ(nameOf("a.mp4"), "h264");
    EXPECT_EQ(nameOf("A.M4V"), "h264");
    EXPECT_EQ(nameOf("a.mov"), "prores-4444");
    EXPECT_EQ(nameOf("a.mxf"), "dnxhr-hqx");
    EXPECT_EQ(nameOf("a.mov", "prores"), "prores-4444");
    EXPECT_EQ(nameOf("a.mov", "prores-422-hq"), "prores-422-hq");
    EXPECT_EQ(nameOf("a.mxf", "dnxhr-lb"), "dnxhr-lb");
    EXPECT_EQ(nameOf("a.mxf", "h264"), "");
    EXPECT_EQ(nameOf("a.mkv", "dnxhr-hq"), "");
    EXPECT_EQ(nameOf("a.mkv"), "ffv1");
    EXPECT_EQ(nameOf("a.mkv", "h265"), "h265");
    EXPECT_EQ(nameOf("a.mp4", "prores"), "");
    EXPECT_EQ(nameOf("a.mp4", ""), "");
    EXPECT_EQ(nameOf("a.avi"), "");
    EXPECT_EQ(nameOf("a"), "");
    EXPECT_EQ(nameOf("a."), "");
}

TEST(VideoCodec, WhatDoesNotGoTogetherIsRefused) {
    EXPECT_EQ(storageFault("a.mp4", {.codec = "h265", .quality = 50}), "");
    EXPECT_EQ(storageFault("a.jpg", {.quality = 50}), "");
    EXPECT_NE(storageFault("a.mp4", {.codec = "prores"}).find("h264, h265"), std::string::npos);
    EXPECT_NE(storageFault("a.mkv", {.quality = 50}), "");
    EXPECT_NE(storageFault("a.png", {.quality = 50}), "");
    EXPECT_NE(storageFault("a.png", {.codec = "h264"}), "");
    EXPECT_NE(storageFault("-", {.codec = "h264"}), "");
    files::TempFolder folder;
    EXPECT_NE(complaintOf([&] {
                  openWriter(folder.file("a.mkv"), {.size = {4, 4}, .quality = 5});
              }),
              "");
    EXPECT_TRUE(folder.names().empty());
}

TEST(ProRes, KeepsAlphaAndColours) {
    files::TempFolder folder;
    const std::vector<std::vector<std::int16_t>> pixels = {{16384, 16384, 16384, 16384},
                                                           {0, 0, 0, 16384},
                                                           {8192, 8192, 8192, 0},
                                                           {12000, 3000, 6000, 8192},
                                                           {100, 15000, 700, 4096}};
    for (const auto& pixel : pixels) {
        const Frame frame = plainFrame({64, 48}, pixel);
        writeAll(folder.file("a.mov"), {.size = {64, 48}, .depth = Depth::S214}, {frame, frame});
        const auto back = readAll(folder.file("a.mov"));
        ASSERT_EQ(back.size(), 2u);
        ASSERT_EQ(back[1].depth(), Depth::S214);
        for (std::size_t i = 0; i < 4; ++i) {
            // Four steps of 10 bits: rounding of luma, of both chroma components and of the
            // transform.
            EXPECT_NEAR(back[1].row16(20)[80 + i], pixel[i], 80) << i << " of " << pixel[0];
        }
    }
    EXPECT_TRUE(openReader(folder.file("a.mov"))->info().hasAlpha);
    EXPECT_EQ(probe(folder.file("a.mov"), "stream=codec_name,profile,color_space"),
              "codec_name=prores\nprofile=4444\ncolor_space=smpte170m\n");
}

// ProRes cannot be marked as full range, so it is written in limited range, whatever the clip's
// range.
TEST(ProRes, KeepsTheColoursOfClipsOfFullRange) {
    files::TempFolder folder;
    for (const std::string name : {"a.mov", "a.mkv"}) {
        const Frame frame = plainFrame({64, 48}, {2000, 8000, 15000, 16384});
        WriteOptions options{.size = {64, 48}, .depth = Depth::S214, .codec = "prores"};
        options.colour.full = true;
        writeAll(folder.file(name), options, {frame});
        const auto back = readAll(folder.file(name));
        ASSERT_EQ(back.size(), 1u);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(back[0].row16(20)[80 + i], frame.row16(20)[80 + i], 80) << name << i;
        }
    }
}

TEST(H265, KeepsDeepColours) {
    files::TempFolder folder;
    const Frame frame = plainFrame({64, 64}, {4000, 4010, 4020, 16384});
    writeAll(folder.file("a.mp4"), {.size = {64, 64}, .depth = Depth::S214, .codec = "h265"},
             {frame});
    const auto back = readAll(folder.file("a.mp4"));
    ASSERT_EQ(back.size(), 1u);
    EXPECT_EQ(back[0].depth(), Depth::S214);
    EXPECT_NEAR(back[0].row16(9)[41], 4010, 60);
}

// The encoder reorders two frames, and leaves the decoding times of shorter clips undefined.
TEST(H265, ShortClipsAreWrittenToo) {
    files::TempFolder folder;
    const auto file = folder.file("a.mp4");
    for (int turn = 0; turn < 5; ++turn) {
        for (const std::size_t count : {2, 1}) {
            std::vector<Frame> frames;
            for (unsigned k = 0; k < count; ++k) {
                frames.push_back(noiseFrame({96, 64}, Depth::Bits8, k));
            }
            writeAll(file, {.size = {96, 64}, .codec = "h265"}, frames);
            EXPECT_EQ(readAll(file).size(), count);
            EXPECT_EQ(probe(file, "stream=nb_read_frames,duration_ts"),
                      "duration_ts=" + std::to_string(512 * count) +
                          "\nnb_read_frames=" + std::to_string(count) + "\n");
        }
    }
}

TEST(Quality, MakesFilesLarger) {
    files::TempFolder folder;
    for (const std::string name : {"a.mp4", "a.mov"}) {
        std::uintmax_t smaller = 0;
        for (const int quality : {1, 50, 100}) {
            writeAll(
                folder.file(name), {.size = {64, 64}, .quality = quality},
                {noiseFrame({64, 64}, Depth::Bits8, 1), noiseFrame({64, 64}, Depth::Bits8, 2)});
            EXPECT_GT(std::filesystem::file_size(folder.file(name)), smaller) << name << quality;
            smaller = std::filesystem::file_size(folder.file(name));
        }
    }
}

TEST(BitRate, IsLimitedUnlessAQualityIsChosen) {
    files::TempFolder folder;
    constexpr FrameSize kSize = {640, 360};
    constexpr int kFrames = 8;
    constexpr double kLimit = 8e6;  // Bits a second, for pictures as small as these.
    constexpr double kSeconds = kFrames / 25.0;
    constexpr double kBuffer = 0.5;  // Seconds.
    std::vector<Frame> frames;
    for (unsigned k = 0; k < kFrames; ++k) frames.push_back(noiseFrame(kSize, Depth::Bits8, k));
    const auto bitsOf = [&](const char* codec, std::optional<int> quality) {
        WriteOptions options{.size = kSize, .quality = quality};
        options.codec = codec;
        writeAll(folder.file("a.mp4"), options, frames);
        return 8.0 * static_cast<double>(std::filesystem::file_size(folder.file("a.mp4")));
    };
    constexpr double kMostBits = kLimit * (kSeconds + kBuffer);
    EXPECT_LT(bitsOf("h264", {}), kMostBits);
    EXPECT_LT(bitsOf("h265", {}), kMostBits);
    EXPECT_GT(bitsOf("h264", 64), kMostBits);
}

TEST(FullRange, IsKeptAndSaid) {
    files::TempFolder folder;
    const Frame white = plainFrame({64, 64}, {16384, 16384, 16384, 16384});
    for (const bool full : {false, true}) {
        writeAll(folder.file("a.mp4"),
                 {.size = {64, 64}, .depth = Depth::S214, .colour = {.matrix = 1, .full = full}},
                 {white});
        EXPECT_EQ(probe(folder.file("a.mp4"), "stream=color_range"),
                  full ? "color_range=pc\n" : "color_range=tv\n");
        EXPECT_EQ(readAll(folder.file("a.mp4"))[0].row8(5)[20], 255);
        EXPECT_EQ(openReader(folder.file("a.mp4"))->info().colour.full, full);
    }
}

TEST(Fields, AreTold) {
    files::TempFolder folder;
    const std::string clip = movingPicture("96x64", "25", 0.4) + " -c:v mpeg2video ";
    runFfmpeg(clip, folder.file("p.mkv"));
    runFfmpeg(clip + "-flags +ildct+ilme -top 1", folder.file("t.mkv"));
    runFfmpeg(clip + "-flags +ildct+ilme -top 0", folder.file("b.mkv"));
    EXPECT_EQ(openReader(folder.file("p.mkv"))->info().fields, FieldOrder::Progressive);
    EXPECT_EQ(openReader(folder.file("t.mkv"))->info().fields, FieldOrder::TopFirst);
    EXPECT_EQ(openReader(folder.file("b.mkv"))->info().fields, FieldOrder::BottomFirst);
}

// 40 frames, of which 15 to 24 are missing and the last ten have half the frame rate.
TEST(UnevenVideo, IsShownAtAConstantRate) {
    files::TempFolder folder;
    const std::string picture = movingPicture("96x64", "25", 1.6);
    runFfmpeg(picture + " -c:v ffv1 -pix_fmt yuv420p", folder.file("even.mkv"));
    runFfmpeg(picture +
                  " -vf \"select='lt(n,15)+between(n,25,30)+gt(n,30)*mod(n,2)'\" -vsync vfr "
                  "-c:v ffv1 -pix_fmt yuv420p",
              folder.file("uneven.mkv"));
    const auto even = readAll(folder.file("even.mkv"));
    EXPECT_FALSE(openReader(folder.file("even.mkv"))->info().uneven);
    const auto reader = openReader(folder.file("uneven.mkv"));
    EXPECT_TRUE(reader->info().uneven);
    ASSERT_TRUE(reader->info().rate);
    const double rate = reader->info().rate->value();
    EXPECT_NEAR(static_cast<double>(reader->info().last + 1) / rate, 1.6, 1 / rate + 0.01);
    for (std::int64_t k = reader->info().last; k >= 0; --k) {
        Frame frame;
        ASSERT_TRUE(reader->read(k, frame));
        // The frame of the constant-rate clip at this time, within half a frame.
        int nearest = 0;
        for (int n = 0; n < 40; ++n) {
            const bool there = n < 15 || (n >= 25 && n <= 30) || (n > 30 && n % 2 == 1);
            if (there && std::llround(n / 25.0 * rate) <= k) {
                nearest = n;
            }
        }
        EXPECT_EQ(frame, even.at(static_cast<std::size_t>(nearest))) << k;
    }
}

}  // namespace
}  // namespace ruvex::media
