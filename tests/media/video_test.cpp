#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/pixels/frame_convert.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

std::vector<Frame> noiseClip(FrameSize size, Depth depth, int count) {
    std::vector<Frame> frames;
    for (int k = 0; k < count; ++k) {
        frames.push_back(noiseFrame(size, depth, static_cast<unsigned>(k), true));
    }
    return frames;
}

class VideoRates : public testing::TestWithParam<const char*> {};

TEST_P(VideoRates, CountRateAndSizeAreTheClips) {
    files::TempFolder folder;
    const Rational rate = *parsePositiveRational(GetParam());
    for (const char* name : {"a.mp4", "a.mkv", "a.avi", "a.mov"}) {
        runFfmpeg(movingPicture("96x64", GetParam(), 37 / rate.value() - 0.01) +
                      " -c:v mpeg4 -q:v 2 -frames:v 37",
                  folder.file(name));
        const auto reader = openReader(folder.file(name));
        EXPECT_EQ(reader->info().rate, rate) << name << " " << toText(*reader->info().rate);
        EXPECT_EQ(reader->info().size, (FrameSize{96, 64})) << name;
        EXPECT_EQ(reader->info().first, 0) << name;
        EXPECT_EQ(reader->info().last, 36) << name;
        EXPECT_EQ(reader->info().depth, Depth::Bits8) << name;
        EXPECT_EQ(readAll(*reader).size(), 37u) << name;
    }
}

TEST_P(VideoRates, ARenderHasTheSameCountRateAndDuration) {
    files::TempFolder folder;
    const Rational rate = *parsePositiveRational(GetParam());
    const std::string entries = "stream=width,height,avg_frame_rate,r_frame_rate,nb_read_frames";
    runFfmpeg(movingPicture("96x64", GetParam(), 37 / rate.value() - 0.01) +
                  " -c:v libx264 -pix_fmt yuv420p -frames:v 37",
              folder.file("in.mp4"));
    const auto reader = openReader(folder.file("in.mp4"));
    const auto frames = readAll(*reader);
    for (const char* name : {"out.mp4", "out.mov", "out.mkv"}) {
        writeAll(folder.file(name), {.size = {96, 64}, .rate = rate}, frames);
        EXPECT_EQ(probe(folder.file(name), entries), probe(folder.file("in.mp4"), entries)) << name;
        EXPECT_EQ(openReader(folder.file(name))->info().rate, rate) << name;
    }
    EXPECT_EQ(probe(folder.file("out.mp4"), "stream=duration"),
              probe(folder.file("in.mp4"), "stream=duration"));
}

INSTANTIATE_TEST_SUITE_P(Rates, VideoRates,
                         testing::Values("25", "30000/1001", "24000/1001", "50", "12.5",
                                         "2997/100"));

class VideoCodecs : public testing::TestWithParam<const char*> {};

TEST_P(VideoCodecs, AFrameIsTheSameWhicheverWayItIsReached) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("96x64", "25", 2) + " " + GetParam(), folder.file("a.mkv"));
    const auto frames = readAll(*openReader(folder.file("a.mkv")));
    ASSERT_EQ(frames.size(), 50u);
    const auto reader = openReader(folder.file("a.mkv"));
    std::mt19937 random(1);
    Frame frame;
    for (const int k : {49, 0, 25, 24, 23, 1}) {
        ASSERT_TRUE(reader->read(k, frame));
        EXPECT_EQ(frame, frames[static_cast<std::size_t>(k)]) << k;
    }
    for (int i = 0; i < 60; ++i) {
        const std::int64_t k = random() % 50;
        ASSERT_TRUE(reader->read(k, frame));
        EXPECT_EQ(frame, frames[static_cast<std::size_t>(k)]) << k;
    }
    EXPECT_FALSE(reader->read(50, frame));
    EXPECT_FALSE(reader->read(-1, frame));
}

INSTANTIATE_TEST_SUITE_P(
    Codecs, VideoCodecs,
    testing::Values("-c:v libx264 -g 12 -bf 3 -pix_fmt yuv420p",
                    "-c:v libx264 -g 12 -bf 3 -x264-params open-gop=1:b-pyramid=normal",
                    "-c:v mpeg2video -g 12 -bf 2 -q:v 2", "-c:v mpeg4 -g 12 -bf 2 -q:v 2",
                    "-c:v ffv1 -pix_fmt yuv422p10le", "-c:v mjpeg -q:v 2"));

// A raw stream has no times at all, an AVI only decoding times, a transport stream no table of key
// frames.
TEST(VideoReader, PoorContainersAreReadByNumberToo) {
    files::TempFolder folder;
    for (const char* name : {"a.h264", "a.avi", "a.ts", "a.m2v"}) {
        const std::string codec = std::string(name) == "a.m2v" ? "mpeg2video" : "libx264 -bf 2";
        runFfmpeg(movingPicture("96x64", "25", 2) + " -g 12 -c:v " + codec, folder.file(name));
        const auto reader = openReader(folder.file(name));
        const auto frames = readAll(*reader);
        EXPECT_EQ(frames.size(), 50u) << name;
        EXPECT_EQ(reader->info().rate, (Rational{25, 1})) << name;
        Frame frame;
        for (const int k : {3, 40, 13, 49, 0}) {
            ASSERT_TRUE(reader->read(k, frame)) << name;
            EXPECT_EQ(frame, frames.at(static_cast<std::size_t>(k))) << name << " " << k;
        }
    }
}

TEST(VideoReader, RecordingsThatBeginWithinAGroupStartAtTheFirstWholeFrame) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("96x64", "25", 2) + " -g 12 -bf 2 -c:v mpeg2video -q:v 2",
              folder.file("a.ts"));
    std::ifstream whole(folder.file("a.ts"), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(whole)), {});
    std::ofstream(folder.file("b.ts"), std::ios::binary)
        << bytes.substr(bytes.size() / 3 / 188 * 188);
    const auto reader = openReader(folder.file("b.ts"));
    const auto frames = readAll(*reader);
    EXPECT_GT(frames.size(), 20u);
    EXPECT_LT(frames.size(), 50u);
    EXPECT_EQ(static_cast<std::int64_t>(frames.size()), reader->info().last + 1);
}

TEST(VideoReader, ColoursFollowTagsOrElseTheHeight) {
    files::TempFolder folder;
    // The luma of saturated red depends on the matrix: a wrong matrix gives a wrong red or green.
    const auto redOf = [&](const std::string& size, const std::string& matrix,
                           const std::string& tags) {
        runFfmpeg("-f lavfi -i color=0xC03020:size=" + size +
                      ":rate=25,format=gbrp -frames:v 1 -vf "
                      "scale=out_color_matrix=" +
                      matrix + ",format=yuv444p -c:v ffv1 " + tags,
                  folder.file("a.mkv"));
        Frame frame;
        openReader(folder.file("a.mkv"))->read(0, frame);
        const std::uint8_t* p = frame.row8(5);
        return std::abs(p[0] - 0xC0) <= 2 && std::abs(p[1] - 0x30) <= 2 &&
               std::abs(p[2] - 0x20) <= 2;
    };
    EXPECT_TRUE(redOf("64x576", "bt601", "-colorspace unknown"));
    EXPECT_TRUE(redOf("64x720", "bt709", "-colorspace unknown"));
    EXPECT_FALSE(redOf("64x576", "bt709", "-colorspace unknown"));
    EXPECT_TRUE(redOf("64x576", "bt709", "-colorspace bt709"));
    EXPECT_TRUE(redOf("64x720", "bt601", "-colorspace smpte170m"));
    EXPECT_TRUE(redOf("64x720", "bt2020", "-colorspace bt2020nc"));
}

TEST(VideoReader, WhiteAndBlackAreExactInBothRanges) {
    files::TempFolder folder;
    for (const char* range : {"tv", "pc"}) {
        for (const char* format : {"yuv420p", "yuv422p", "yuv444p"}) {
            runFfmpeg(
                "-f lavfi -i color=white:size=32x32,format=gbrp -f lavfi -i "
                "color=black:size=32x32,format=gbrp -frames:v 1 -filter_complex "
                "'hstack,scale=out_range=" +
                    std::string(range) + ",format=" + format + "' -c:v ffv1 -color_range " + range,
                folder.file("a.mkv"));
            Frame frame;
            openReader(folder.file("a.mkv"), {.depth = Depth::Bits8})->read(0, frame);
            EXPECT_EQ(frame.row8(9)[4 * 4], 255) << range << format;
            EXPECT_EQ(frame.row8(9)[4 * 60], 0) << range << format;
            EXPECT_EQ(frame.row8(9)[4 * 60 + 3], 255) << range << format;
        }
    }
}

TEST(VideoReader, OverEightBitsIsDeep) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("96x64", "25", 0.2) + " -pix_fmt yuv420p10le -c:v ffv1",
              folder.file("a.mkv"));
    Frame frame;
    const auto reader = openReader(folder.file("a.mkv"));
    EXPECT_EQ(reader->info().depth, Depth::S214);
    ASSERT_TRUE(reader->read(0, frame));
    EXPECT_EQ(frame.depth(), Depth::S214);
    EXPECT_EQ(frame.row16(0)[3], 16384);
}

TEST(VideoReader, TheTopLineIsTheLastChainRow) {
    files::TempFolder folder;
    runFfmpeg(
        "-f lavfi -i color=red:size=64x32 -f lavfi -i color=blue:size=64x32 "
        "-filter_complex vstack -frames:v 3 -pix_fmt yuv420p -c:v libx264",
        folder.file("a.mp4"));
    const auto frames = readAll(*openReader(folder.file("a.mp4")));
    ASSERT_EQ(frames.size(), 3u);
    EXPECT_GT(frames[0].row8(60)[0], 200);
    EXPECT_GT(frames[0].row8(3)[2], 200);
    // Another program shows red at the top of a file written here.
    writeAll(folder.file("b.mp4"), {.size = {64, 64}}, frames);
    runFfmpeg("-i '" + folder.file("b.mp4").string() + "' -frames:v 1 -pix_fmt rgb24 -f rawvideo",
              folder.file("b.rgb"));
    std::ifstream raw(folder.file("b.rgb"), std::ios::binary);
    std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(raw)), {});
    ASSERT_EQ(bytes.size(), 64u * 64 * 3);
    EXPECT_GT(bytes[0], 200);
    EXPECT_GT(bytes[bytes.size() - 1], 200);
}

class VideoCutOff : public testing::TestWithParam<const char*> {};

TEST_P(VideoCutOff, IsRefusedWithASentence) {
    files::TempFolder folder;
    const std::string name = GetParam();
    const auto file = folder.file(name.substr(name.rfind(' ') + 1));
    runFfmpeg(movingPicture("96x64", "25", 2) + " " + name.substr(0, name.rfind(' ')), file);
    cutTo(file, 0.6);
    const std::string said = complaintOf([&] { readAll(*openReader(file)); });
    EXPECT_NE(said.find(file.filename().string()), std::string::npos) << said;
    EXPECT_NE(said.find("cut off"), std::string::npos) << said;
}

INSTANTIATE_TEST_SUITE_P(Containers, VideoCutOff,
                         testing::Values("-c:v libx264 a.mp4",
                                         "-c:v libx264 -movflags +faststart fast.mp4",
                                         "-c:v libx264 a.mkv", "-c:v ffv1 f.mkv",
                                         "-c:v mpeg4 a.avi"));

TEST(VideoReader, OtherFilesAreRefused) {
    files::TempFolder folder;
    std::ofstream(folder.file("text.mp4")) << "no video here, only words and words and words";
    std::ofstream(folder.file("empty.mp4"));
    std::filesystem::create_directory(folder.file("folder.mp4"));
    runFfmpeg("-f lavfi -i sine=duration=0.1", folder.file("sound.wav"));
    for (const char* name : {"text.mp4", "empty.mp4", "folder.mp4", "sound.wav", "none.mp4"}) {
        const std::string said = complaintOf([&] { openReader(folder.file(name)); });
        EXPECT_NE(said.find(name), std::string::npos) << name << said;
    }
}

TEST(VideoReader, NamesWithColonsAndPercentSignsAreOnlyNames) {
    files::TempFolder folder;
    const auto file = folder.file("take: 100% http.mkv");
    writeAll(file, {.size = {8, 8}}, noiseClip({8, 8}, Depth::Bits8, 2));
    EXPECT_EQ(readAll(*openReader(file)).size(), 2u);
}

TEST(Ffv1, ComesBackExactlyWithAlpha) {
    files::TempFolder folder;
    for (const FrameSize size :
         {FrameSize{1, 1}, {2, 2}, {500, 1}, {1, 500}, {5, 3}, {63, 64}, {65, 67}, {129, 96}}) {
        for (const Depth depth : {Depth::Bits8, Depth::S214}) {
            const auto clip = noiseClip(size, depth, 4);
            writeAll(folder.file("a.mkv"), {.size = size, .depth = depth}, clip);
            const auto reader = openReader(folder.file("a.mkv"));
            EXPECT_TRUE(reader->info().hasAlpha);
            EXPECT_EQ(reader->info().depth, depth);
            EXPECT_EQ(readAll(*reader), clip) << toText(size);
        }
    }
}

TEST(VideoReader, DeepColoursAndOvershootAreExact) {
    files::TempFolder folder;
    const auto pixel = [&](const std::string& yuv, const std::string& format,
                           const std::string& range = "tv") {
        runFfmpeg("-f lavfi -i nullsrc=size=64x64,format=" + format + ",geq=" + yuv +
                      " -frames:v 1 -c:v ffv1 -colorspace bt709 -color_range " + range,
                  folder.file("a.mkv"));
        Frame frame;
        openReader(folder.file("a.mkv"))->read(0, frame);
        const std::int16_t* p = frame.row16(9) + 4 * 9;
        return std::vector<int>{p[0], p[1], p[2], p[3]};
    };
    EXPECT_EQ(pixel("940:512:512", "yuv444p10le"), (std::vector{16384, 16384, 16384, 16384}));
    EXPECT_EQ(pixel("64:512:512", "yuv420p10le"), (std::vector{0, 0, 0, 16384}));
    EXPECT_EQ(pixel("1019:512:512", "yuv420p10le"), (std::vector{17862, 17862, 17862, 16384}));
    EXPECT_EQ(pixel("4:512:512", "yuv422p10le"), (std::vector{-1122, -1122, -1122, 16384}));
    EXPECT_EQ(pixel("1023:512:512", "yuv420p10le", "pc"),
              (std::vector{16384, 16384, 16384, 16384}));
    EXPECT_EQ(pixel("0:512:512", "yuv420p12le", "pc")[3], 16384);
    // 100% red of BT.709 in 10 bits is YUV 250, 409, 960, each rounded by at most half a step.
    const auto red = pixel("250:409:960", "yuv444p10le");
    EXPECT_NEAR(red[0], 16384, 25);
    EXPECT_NEAR(red[1], 0, 25);
    EXPECT_NEAR(red[2], 0, 25);
}

TEST(Ffv1, PremultipliedColoursAreDividedAndMultiplied) {
    files::TempFolder folder;
    Frame stored({1, 2}, Depth::S214);
    const std::int16_t colours[] = {4096, 2048, 0, 8192, 5, 6, 7, 0};
    std::copy(std::begin(colours), std::end(colours), stored.row16(0));
    writeAll(folder.file("a.mkv"), {.size = {1, 2}, .depth = Depth::S214}, {stored});
    Frame frame;
    openReader(folder.file("a.mkv"), {.alpha = AlphaForm::Premultiplied})->read(0, frame);
    EXPECT_EQ(std::vector<int>(frame.row16(0), frame.row16(0) + 8),
              (std::vector{8192, 4096, 0, 8192, 5, 6, 7, 0}));
    writeAll(folder.file("b.mkv"),
             {.size = {1, 2}, .depth = Depth::S214, .alpha = AlphaForm::Premultiplied}, {frame});
    EXPECT_EQ(readAll(*openReader(folder.file("b.mkv"))), std::vector{stored});
}

TEST(H264, GreysComeBackWithinAStep) {
    files::TempFolder folder;
    for (const Depth depth : {Depth::Bits8, Depth::S214}) {
        for (const int grey : {0, 1, 64, 128, 200, 254, 255}) {
            Frame frame({64, 64}, Depth::Bits8);
            std::fill(frame.bytes().begin(), frame.bytes().end(), static_cast<std::byte>(grey));
            writeAll(folder.file("a.mp4"), {.size = {64, 64}, .depth = depth},
                     {convertDepth(frame, depth)});
            const auto again = readAll(*openReader(folder.file("a.mp4")));
            EXPECT_NEAR(again.at(0).row8(30)[120], grey, 1);
        }
    }
}

TEST(H264, OddSizesKeepTheirSize) {
    files::TempFolder folder;
    for (const FrameSize size : {FrameSize{1, 1}, {33, 17}, {64, 33}}) {
        writeAll(folder.file("a.mp4"), {.size = size}, noiseClip(size, Depth::Bits8, 3));
        const auto reader = openReader(folder.file("a.mp4"));
        EXPECT_EQ(reader->info().size, size);
        EXPECT_EQ(readAll(*reader).size(), 3u);
    }
}

TEST(H264, LooksLikeItsFrames) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("320x240", "25", 0.4) + " -c:v ffv1 -pix_fmt yuv420p",
              folder.file("a.mkv"));
    const auto reader = openReader(folder.file("a.mkv"), {.depth = Depth::S214});
    const auto frames = readAll(*reader);
    writeAll(folder.file("b.mp4"), {.size = {320, 240}, .depth = Depth::S214}, frames);
    const auto again = readAll(*openReader(folder.file("b.mp4"), {.depth = Depth::S214}));
    ASSERT_EQ(again.size(), frames.size());
    double sum = 0;
    for (int y = 0; y < 240; ++y) {
        for (int i = 0; i < 320 * 4; ++i) {
            sum += std::abs(again[5].row16(y)[i] - frames[5].row16(y)[i]);
        }
    }
    EXPECT_LT(sum / (240 * 320 * 4) / kWhiteS214, 0.01);
}

TEST(H264, IsTaggedWithWhatItWasMadeWith) {
    files::TempFolder folder;
    const std::string entries = "stream=pix_fmt,color_range,color_space,sample_aspect_ratio";
    const auto tags = [&](const WriteOptions& options) {
        writeAll(folder.file("a.mp4"), options, noiseClip(options.size, Depth::Bits8, 2));
        return probe(folder.file("a.mp4"), entries);
    };
    EXPECT_EQ(tags({.size = {64, 576}, .pixelAspect = {16, 11}}),
              "sample_aspect_ratio=16:11\npix_fmt=yuv420p\ncolor_range=tv\ncolor_space=bt470bg\n");
    EXPECT_EQ(tags({.size = {64, 480}}),
              "sample_aspect_ratio=1:1\npix_fmt=yuv420p\ncolor_range=tv\ncolor_space=smpte170m\n");
    EXPECT_EQ(tags({.size = {64, 720}}),
              "sample_aspect_ratio=1:1\npix_fmt=yuv420p\ncolor_range=tv\ncolor_space=bt709\n");
    EXPECT_EQ(tags({.size = {64, 576}, .colour = {1, 1, 1}}),
              "sample_aspect_ratio=1:1\npix_fmt=yuv420p\ncolor_range=tv\ncolor_space=bt709\n");
}

}  // namespace
}  // namespace ruvex::media
