// The sound of a clip in MXF.

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include "media/frame_writer.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

constexpr FrameSize kPcmPicture = {256, 120};
constexpr int kPcmRate = 48000;
constexpr int kTwoBytes = 2;

/// Makes a file with sound, and without pictures, by a source of the ffmpeg command.
std::filesystem::path soundFile(const files::TempFolder& folder, const std::string& source,
                                const std::string& coding, const std::string& name) {
    runFfmpeg("-f lavfi -i \"" + source + "\" " + coding, folder.file(name));
    return folder.file(name);
}

/// Writes `frames` black frames with the sound of the source. Returns the remarks.
std::vector<std::string> writeWithSound(const std::filesystem::path& file, const CopySource& source,
                                        int frames, Rational rate = {25, 1}) {
    const auto writer = openWriter(file, {.size = kPcmPicture, .rate = rate, .copied = source});
    for (int k = 0; k < frames; ++k) writer->write(k, Frame(kPcmPicture, Depth::Bits8));
    writer->finish();
    return writer->remarks();
}

/// The samples of an audio stream, of the first channel, as 16 bits and with the rate of the file.
std::vector<std::int16_t> samplesOf(const files::TempFolder& folder,
                                    const std::filesystem::path& file, int stream = 0) {
    const auto raw = folder.file("samples.raw");
    runFfmpeg("-i " + quoted(file) + " -map a:" + std::to_string(stream) +
                  " -af \"pan=mono|c0=c0\" -c:a pcm_s16le -f s16le",
              raw);
    std::ifstream in(raw, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(in), {});
    std::vector<std::int16_t> samples(bytes.size() / kTwoBytes);
    std::copy_n(bytes.begin(), samples.size() * kTwoBytes, reinterpret_cast<char*>(samples.data()));
    return samples;
}

/// The first sample that is not near silence; -1 if there is none.
std::ptrdiff_t onset(const std::vector<std::int16_t>& samples) {
    const auto found = std::ranges::find_if(samples, [](int v) { return std::abs(v) > 2000; });
    return found == samples.end() ? -1 : found - samples.begin();
}

/// Noise with samples of all values.
const std::string kNoiseSource = "anoisesrc=r=48000:d=1:seed=7:a=0.9";

class PcmOf48Kilohertz : public testing::TestWithParam<const char*> {};

TEST_P(PcmOf48Kilohertz, IsCopiedSampleBySample) {
    files::TempFolder folder;
    const std::string coding = GetParam();
    const auto in = soundFile(folder, kNoiseSource, "-ac 2 -c:a " + coding, "in.mov");
    const auto out = folder.file("out.mxf");
    EXPECT_EQ(writeWithSound(out, {.path = in}, 25), std::vector<std::string>{});
    EXPECT_EQ(listed(out, "-select_streams a -show_entries stream=codec_name,sample_rate,channels"),
              coding + ",48000,2\n");
    const std::string decode = " -map a -c:a " + coding + " -f md5";
    runFfmpeg("-i " + quoted(in) + decode, folder.file("in.md5"));
    runFfmpeg("-i " + quoted(out) + decode, folder.file("out.md5"));
    std::string sums[2];
    std::ifstream(folder.file("in.md5")) >> sums[0];
    std::ifstream(folder.file("out.md5")) >> sums[1];
    EXPECT_EQ(sums[0], sums[1]);
}

INSTANTIATE_TEST_SUITE_P(Codings, PcmOf48Kilohertz, testing::Values("pcm_s16le", "pcm_s24le"));

struct SoundCoding {
    const char* arguments;
    const char* file;
    const char* named;  ///< What the remark says.
};

class OtherSound : public testing::TestWithParam<SoundCoding> {};

// A tone that begins half a second into the clip.
TEST_P(OtherSound, IsConvertedAndKeepsItsTime) {
    files::TempFolder folder;
    const std::string tone = "aevalsrc='0.8*sin(2*PI*997*t)*gt(t\\,0.5)':s=" +
                             std::string(GetParam().file).substr(0, 5) + ":d=1";
    const auto in = soundFile(folder, tone, GetParam().arguments, GetParam().file);
    const auto out = folder.file("out.mxf");
    const auto remarks = writeWithSound(out, {.path = in}, 25);
    ASSERT_EQ(remarks.size(), 1u);
    EXPECT_NE(remarks[0].find(GetParam().named), std::string::npos) << remarks[0];
    EXPECT_EQ(listed(out, "-select_streams a -show_entries stream=codec_name,sample_rate"),
              "pcm_s24le,48000\n");
    const auto samples = samplesOf(folder, out);
    EXPECT_EQ(samples.size(), kPcmRate);
    constexpr double kMillisecond = kPcmRate / 1000.0;
    EXPECT_NEAR(static_cast<double>(onset(samples)), kPcmRate / 2.0, 4 * kMillisecond);
    EXPECT_GT(*std::ranges::max_element(samples), 24000);
}

INSTANTIATE_TEST_SUITE_P(
    Codings, OtherSound,
    testing::Values(SoundCoding{"-c:a aac -b:a 192k", "44100.mp4", "aac of 44100 Hz"},
                    SoundCoding{"-c:a libopus", "48000.mkv", "opus of 48000 Hz"},
                    SoundCoding{"-c:a flac", "96000.flac", "flac of 96000 Hz"},
                    SoundCoding{"-c:a pcm_s16le", "32000.mkv", "pcm_s16le of 32000 Hz"},
                    SoundCoding{"-c:a pcm_u8", "22050.wav", "pcm_u8 of 22050 Hz"}));

// Frames of 30000/1001 a second have 1601 or 1602 samples each.
TEST(PcmSound, IsCutAndFilledUpToThePictures) {
    files::TempFolder folder;
    const auto in = soundFile(folder, kNoiseSource, "-c:a pcm_s16le", "in.mov");
    const auto all = samplesOf(folder, in);
    const auto out = folder.file("out.mxf");
    for (const int frames : {1, 2, 3, 7, 29, 30, 31, 45}) {
        writeWithSound(out, {.path = in}, frames, {30000, 1001});
        EXPECT_EQ(probe(out, "stream=nb_read_frames"),
                  "nb_read_frames=" + std::to_string(frames) + "\n");
        auto samples = samplesOf(folder, out);
        EXPECT_NEAR(static_cast<double>(samples.size()), frames * 1601.6, 1.0) << frames;
        const std::size_t heard = std::min(samples.size(), all.size());
        EXPECT_TRUE(std::equal(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(heard),
                               samples.begin()));
        samples.erase(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(heard));
        EXPECT_TRUE(std::ranges::all_of(samples, [](int v) { return v == 0; }));
    }
}

TEST(PcmSound, BeginsWithThePictures) {
    files::TempFolder folder;
    const auto in = soundFile(folder, kNoiseSource, "-c:a pcm_s16le", "in.mov");
    const auto all = samplesOf(folder, in);
    const auto out = folder.file("out.mxf");
    // The first picture a tenth of a second into the sound, or as much before it.
    writeWithSound(out, {.path = in, .zero = 100'000}, 10);
    auto samples = samplesOf(folder, out);
    ASSERT_EQ(samples.size(), 10u * kPcmRate / 25);
    EXPECT_TRUE(std::equal(samples.begin(), samples.end(), all.begin() + kPcmRate / 10));
    writeWithSound(out, {.path = in, .zero = -100'000}, 10);
    samples = samplesOf(folder, out);
    EXPECT_TRUE(std::all_of(samples.begin(), samples.begin() + kPcmRate / 10,
                            [](int v) { return v == 0; }));
    EXPECT_TRUE(std::equal(samples.begin() + kPcmRate / 10, samples.end(), all.begin()));
}

TEST(PcmSound, HoldsAllStreams) {
    files::TempFolder folder;
    const auto in = folder.file("in.mkv");
    runFfmpeg("-f lavfi -i " + kNoiseSource +
                  " -f lavfi -i anoisesrc=r=48000:d=0.4:seed=9:a=0.9 "
                  "-map 0 -map 1 -c:a pcm_s16le",
              in);
    const auto out = folder.file("out.mxf");
    writeWithSound(out, {.path = in}, 25);
    EXPECT_EQ(listed(out, "-select_streams a -show_entries stream=codec_name"),
              "pcm_s16le\npcm_s16le\n");
    for (const int stream : {0, 1}) {
        const auto before = samplesOf(folder, in, stream);
        const auto after = samplesOf(folder, out, stream);
        ASSERT_EQ(after.size(), kPcmRate);
        EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin())) << stream;
    }
}

TEST(PcmSound, GapsStaySilent) {
    files::TempFolder folder;
    const auto in = soundFile(folder, kNoiseSource,
                              "-af \"aselect='lt(t,0.2)+gt(t,0.6)'\" -c:a pcm_s16le", "in.mkv");
    const auto out = folder.file("out.mxf");
    writeWithSound(out, {.path = in}, 25);
    const auto samples = samplesOf(folder, out);
    ASSERT_EQ(samples.size(), kPcmRate);
    EXPECT_TRUE(std::all_of(samples.begin() + kPcmRate * 3 / 10, samples.begin() + kPcmRate / 2,
                            [](int v) { return v == 0; }));
    EXPECT_NE(onset({samples.begin() + kPcmRate * 7 / 10, samples.end()}), -1);
}

TEST(PcmSound, CanBeLeftOut) {
    files::TempFolder folder;
    const auto in = soundFile(folder, kNoiseSource, "-c:a flac", "in.mkv");
    for (const std::string name : {"out.mxf", "out.mkv", "out.mp4", "out.y4m"}) {
        EXPECT_EQ(writeWithSound(folder.file(name), {.path = in, .sound = false}, 5),
                  std::vector<std::string>{});
        EXPECT_EQ(listed(folder.file(name), "-show_entries stream=codec_type"), "video\n");
    }
}

}  // namespace
}  // namespace ruvex::media
