// The codecs that editors exchange: ProRes and DNxHR in QuickTime and MXF.

#include <cmath>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/storage_choice.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

struct Profile {
    const char* codec;
    const char* probed;   ///< Codec, profile and pixel format by the ffprobe command.
    int bits;             ///< Of the frames that are read.
    double leastQuality;  ///< Peak signal to noise in dB of the clip below.
};

constexpr Profile kProfiles[] = {
    {"prores-422-proxy", "prores,Proxy,yuv422p10le", 10, 25},
    {"prores-422-lt", "prores,LT,yuv422p10le", 10, 27},
    {"prores-422", "prores,Standard,yuv422p10le", 10, 29},
    {"prores-422-hq", "prores,HQ,yuv422p10le", 10, 30},
    {"prores-4444", "prores,4444,yuva444p12le", 12, 40},
    {"dnxhr-lb", "dnxhd,DNXHR LB,yuv422p", 8, 25},
    {"dnxhr-sq", "dnxhd,DNXHR SQ,yuv422p", 8, 25},
    {"dnxhr-hq", "dnxhd,DNXHR HQ,yuv422p", 8, 27},
    {"dnxhr-hqx", "dnxhd,DNXHR HQX,yuv422p10le", 10, 27},
    {"dnxhr-444", "dnxhd,DNXHR 444,yuv444p10le", 10, 35},
};

constexpr FrameSize kProfilePicture = {256, 120};
constexpr int kProfileFrames = 3;

/// Grey noise of little contrast over a ramp of colours.
Frame profileScene(Depth depth, unsigned seed) {
    Frame frame = noiseFrame(kProfilePicture, depth, seed, true);
    const int white = depth == Depth::Bits8 ? kWhite8 : kWhiteS214;
    for (int y = 0; y < kProfilePicture.height; ++y) {
        for (int x = 0; x < kProfilePicture.width; ++x) {
            const int at = x * kChannels;
            const int noise = depth == Depth::Bits8 ? frame.row8(y)[at] : frame.row16(y)[at];
            const int values[] = {white * x / kProfilePicture.width / 2 + noise / 4,
                                  white * y / kProfilePicture.height / 2 + noise / 4, white / 3,
                                  white};
            for (int c = 0; c < kChannels; ++c) {
                if (depth == Depth::Bits8) {
                    frame.row8(y)[at + c] = static_cast<std::uint8_t>(values[c]);
                } else {
                    frame.row16(y)[at + c] = static_cast<std::int16_t>(values[c]);
                }
            }
        }
    }
    return frame;
}

void writeScene(const std::filesystem::path& file, const WriteOptions& options) {
    const auto writer = openWriter(file, options);
    for (int k = 0; k < kProfileFrames; ++k) {
        writer->write(k, profileScene(options.depth, static_cast<unsigned>(k)));
    }
    writer->finish();
}

/// In dB, of all components; `depth` is that of the scene.
double peakSignalToNoise(const Frame& one, const Frame& other) {
    const bool deep = one.depth() == Depth::S214;
    const double white = deep ? kWhiteS214 : kWhite8;
    double squares = 0;
    const int count = one.width() * one.height() * kChannels;
    for (int i = 0; i < count; ++i) {
        const double difference =
            deep ? one.row16(0)[i] - other.row16(0)[i] : one.row8(0)[i] - other.row8(0)[i];
        squares += difference * difference / (white * white);
    }
    return -10 * std::log10(squares / count);
}

class Profiles : public testing::TestWithParam<std::tuple<Profile, const char*>> {};

TEST_P(Profiles, AreReadBack) {
    const auto& [profile, ending] = GetParam();
    files::TempFolder folder;
    const auto file = folder.file(std::string("a") + ending);
    for (const Depth depth : {Depth::Bits8, Depth::S214}) {
        WriteOptions options{.size = kProfilePicture, .depth = depth, .rate = {30000, 1001}};
        options.codec = profile.codec;
        options.colour = {.primaries = 1, .transfer = 1, .matrix = 1};
        writeScene(file, options);
        EXPECT_EQ(
            listed(file, "-select_streams v:0 -show_entries stream=codec_name,profile,pix_fmt"),
            std::string(profile.probed) + "\n");
        EXPECT_EQ(probe(file, "stream=nb_read_frames,r_frame_rate,color_range"),
                  "color_range=tv\nr_frame_rate=30000/1001\nnb_read_frames=3\n");
        const auto reader = openReader(file, {.depth = depth});
        EXPECT_EQ(reader->info().bits, profile.bits);
        EXPECT_EQ(reader->info().last, kProfileFrames - 1);
        EXPECT_EQ(reader->info().colour.primaries, 1);
        EXPECT_EQ(reader->info().colour.transfer, 1);
        EXPECT_EQ(reader->info().colour.matrix, 1);
        for (int k = 0; k < kProfileFrames; ++k) {
            Frame frame;
            ASSERT_TRUE(reader->read(k, frame));
            const double quality =
                peakSignalToNoise(profileScene(depth, static_cast<unsigned>(k)), frame);
            EXPECT_GT(quality, profile.leastQuality) << profile.codec << ending << k;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Profiles,
                         testing::Combine(testing::ValuesIn(kProfiles),
                                          testing::Values(".mov", ".mxf")));

/// A frame of one colour.
Frame plainPicture(const std::array<std::int16_t, 4>& pixel) {
    Frame frame(kProfilePicture, Depth::S214);
    for (int i = 0; i < kProfilePicture.width * kProfilePicture.height * kChannels; ++i) {
        frame.row16(0)[i] = pixel[static_cast<std::size_t>(i % kChannels)];
    }
    return frame;
}

// Whatever colour tags a clip has or lacks, the matrix of the result is known to its readers.
TEST(Profiles, KeepColoursOfAllMatrices) {
    files::TempFolder folder;
    const Frame frame = plainPicture({14000, 3000, 6000, 16384});
    for (const std::string name : {"a.mov", "a.mxf"}) {
        for (const std::string codec : {"prores-422-hq", "dnxhr-hqx", "dnxhr-hq"}) {
            for (const int matrix : {1, 2, 4, 5, 6, 7, 9}) {
                for (const int other : {1, 2, 6, 9}) {
                    WriteOptions options{
                        .size = kProfilePicture, .depth = Depth::S214, .codec = codec};
                    options.colour = {.primaries = other, .transfer = other == 9 ? 14 : other};
                    options.colour.matrix = matrix;
                    const auto writer = openWriter(folder.file(name), options);
                    writer->write(0, frame);
                    writer->finish();
                    const auto reader = openReader(folder.file(name), {.depth = Depth::S214});
                    Frame back;
                    ASSERT_TRUE(reader->read(0, back));
                    for (std::size_t i = 0; i < 3; ++i) {
                        EXPECT_NEAR(back.row16(60)[400 + i], frame.row16(60)[400 + i], 200)
                            << name << codec << " matrix " << matrix << " others " << other;
                    }
                }
            }
        }
    }
}

TEST(Profiles, OfFixedRateTakeNoQuality) {
    EXPECT_EQ(storageFault("a.mov", {.codec = "prores-4444", .quality = 50}), "");
    for (const char* codec : {"prores-422", "prores-422-hq", "dnxhr-lb", "dnxhr-444"}) {
        const std::string fault = storageFault("a.mov", {.codec = codec, .quality = 50});
        EXPECT_NE(fault.find("bit rate is fixed"), std::string::npos) << fault;
    }
}

// Frames of DNxHR have a least size in bytes, which small pictures do not reach.
TEST(Profiles, OfHigherNamesMakeLargerFiles) {
    files::TempFolder folder;
    constexpr FrameSize kLarger = {640, 360};
    const std::vector<std::vector<const char*>> families = {
        {"prores-422-proxy", "prores-422-lt", "prores-422", "prores-422-hq"},
        {"dnxhr-lb", "dnxhr-sq", "dnxhr-hq", "dnxhr-444"}};
    for (const auto& family : families) {
        std::uintmax_t smaller = 0;
        for (const char* codec : family) {
            const auto writer = openWriter(folder.file("a.mov"), {.size = kLarger, .codec = codec});
            writer->write(0, noiseFrame(kLarger, Depth::Bits8, 1));
            writer->finish();
            EXPECT_GT(std::filesystem::file_size(folder.file("a.mov")), smaller) << codec;
            smaller = std::filesystem::file_size(folder.file("a.mov"));
        }
    }
}

TEST(PictureFault, NamesWhatACodecCannotHold) {
    const auto fault = [](const char* file, const char* codec, FrameSize size) {
        WriteOptions options{.size = size};
        if (*codec != '\0') options.codec = codec;
        return pictureFault(file, options);
    };
    EXPECT_EQ(fault("a.mov", "dnxhr-hq", {256, 120}), "");
    EXPECT_EQ(fault("a.mov", "dnxhr-hq", {256, 121}), "");
    EXPECT_NE(fault("a.mov", "dnxhr-hq", {255, 120}), "");
    EXPECT_NE(fault("a.mov", "dnxhr-444", {256, 119}), "");
    EXPECT_NE(fault("a.mxf", "", {64, 48}), "");
    EXPECT_NE(fault("a.mov", "dnxhr-hq", {257, 120}), "");
    EXPECT_EQ(fault("a.mov", "dnxhr-444", {257, 121}), "");
    EXPECT_NE(fault("a.mov", "prores-422", {63, 48}), "");
    EXPECT_EQ(fault("a.mov", "prores-422", {64, 47}), "");
    EXPECT_EQ(fault("a.mov", "", {63, 47}), "");
    EXPECT_EQ(fault("a.png", "", {1, 1}), "");
    EXPECT_EQ(fault("-", "", {1, 1}), "");
}

// What PictureFault passes can be written, also at the edges of the limits.
TEST(PictureFault, PassesOnlyWhatCanBeWritten) {
    files::TempFolder folder;
    struct Case {
        const char* file;
        const char* codec;
        FrameSize size;
    };
    for (const Case& c :
         {Case{"a.mov", "dnxhr-hq", {256, 121}}, Case{"a.mxf", "dnxhr-hqx", {258, 121}},
          Case{"a.mov", "dnxhr-444", {257, 121}}, Case{"a.mxf", "dnxhr-444", {257, 121}},
          Case{"a.mov", "prores-422", {2, 1}}, Case{"a.mxf", "prores-422", {2, 1}},
          Case{"a.mxf", "prores-422-hq", {18, 17}}, Case{"a.mxf", "prores-4444", {17, 5}},
          Case{"a.mxf", "prores-4444", {1, 1}}}) {
        WriteOptions options{.size = c.size};
        options.codec = c.codec;
        ASSERT_EQ(pictureFault(c.file, options), "");
        const auto writer = openWriter(folder.file(c.file), options);
        writer->write(0, Frame(c.size, Depth::Bits8));
        writer->finish();
        const auto reader = openReader(folder.file(c.file));
        EXPECT_EQ(reader->info().size, c.size) << c.file << c.codec << toText(c.size);
        Frame frame;
        EXPECT_TRUE(reader->read(0, frame));
    }
}

TEST(QualityDoubt, IsAboutValuesThatLookLikeRateFactors) {
    const auto doubt = [](const char* file, int quality) {
        return qualityDoubt(file, {.quality = quality});
    };
    EXPECT_NE(doubt("a.mp4", 18).find("give 64"), std::string::npos);
    EXPECT_NE(doubt("a.mp4", 23).find("give 54"), std::string::npos);
    EXPECT_NE(doubt("a.mp4", 30), "");
    EXPECT_EQ(doubt("a.mp4", 31), "");
    EXPECT_EQ(doubt("a.mov", 18), "");
    EXPECT_EQ(doubt("a.jpg", 18), "");
    EXPECT_EQ(qualityDoubt("a.mp4", {}), "");
}

TEST(EncoderSpeed, IsOfH264AndH265Only) {
    EXPECT_EQ(storageFault("a.mp4", {.encoderSpeed = "veryfast"}), "");
    EXPECT_EQ(storageFault("a.mkv", {.codec = "h265", .encoderSpeed = "veryslow"}), "");
    EXPECT_NE(storageFault("a.mp4", {.encoderSpeed = "placebo"}).find("ultrafast"),
              std::string::npos);
    EXPECT_NE(storageFault("a.mov", {.encoderSpeed = "fast"}), "");
    EXPECT_NE(storageFault("a.png", {.encoderSpeed = "fast"}), "");
}

TEST(EncoderSpeed, ReachesTheEncoder) {
    files::TempFolder folder;
    for (const char* codec : {"h264", "h265"}) {
        std::vector<std::uintmax_t> sizes;
        for (const char* speed : {"ultrafast", "slow"}) {
            WriteOptions options{.size = kProfilePicture};
            options.codec = codec;
            options.encoderSpeed = speed;
            writeScene(folder.file("a.mp4"), options);
            sizes.push_back(std::filesystem::file_size(folder.file("a.mp4")));
        }
        EXPECT_NE(sizes[0], sizes[1]) << codec;
    }
}

}  // namespace
}  // namespace ruvex::media
