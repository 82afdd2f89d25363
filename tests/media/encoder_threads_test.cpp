// A number of encoder threads makes the bytes of H.264 and H.265 the same everywhere.

#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>

#include "media/frame_writer.h"
#include "media/storage_choice.h"
#include "media/video/video_codec.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

/// Noise of this size needs more bits than the limit of the rate.
constexpr FrameSize kNoisySize = {512, 384};

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Only one processor for this thread and those that it starts.
class OneProcessor {
public:
    OneProcessor() {
        sched_getaffinity(0, sizeof all_, &all_);
        cpu_set_t one;
        CPU_ZERO(&one);
        for (int cpu = 0; CPU_COUNT(&one) == 0; ++cpu) {
            if (CPU_ISSET(cpu, &all_)) CPU_SET(cpu, &one);
        }
        sched_setaffinity(0, sizeof one, &one);
    }
    ~OneProcessor() { sched_setaffinity(0, sizeof all_, &all_); }

    /// Whether there are more without this.
    static bool changesAnything() {
        cpu_set_t all{};
        return sched_getaffinity(0, sizeof all, &all) == 0 && CPU_COUNT(&all) > 1;
    }
    OneProcessor(const OneProcessor&) = delete;
    OneProcessor& operator=(const OneProcessor&) = delete;

private:
    cpu_set_t all_{};
};

struct CodedNoise {
    std::string codec;
    FieldOrder fields = FieldOrder::Progressive;

    std::string with(std::optional<int> threads, std::optional<int> quality = {}) const {
        const files::TempFolder folder;
        const auto file = folder.file("a.mp4");
        WriteOptions options{.size = kNoisySize, .fields = fields};
        options.codec = codec;
        options.quality = quality;
        options.encoderSpeed = "ultrafast";
        options.encoderThreads = threads;
        constexpr int kFrames = 10;
        const auto writer = openWriter(file, options);
        for (unsigned k = 0; k < kFrames; ++k) {
            writer->write(k, noiseFrame(kNoisySize, Depth::Bits8, k));
        }
        writer->finish();
        return contentOf(file);
    }
};

void expectTheSameOnOneProcessor(const CodedNoise& coded, int threads) {
    const std::string bytes = coded.with(threads);
    EXPECT_TRUE(coded.with(threads) == bytes) << coded.codec << " " << threads;
    const OneProcessor one;
    EXPECT_TRUE(coded.with(threads) == bytes) << coded.codec << " " << threads;
}

TEST(EncoderThreads, GiveTheSameBytesOnFewerProcessors) {
    if (!OneProcessor::changesAnything()) {
        GTEST_SKIP() << "There is only one processor here, so that there are not fewer to try.";
    }
    for (const int threads : {1, 3}) {
        expectTheSameOnOneProcessor({"h264"}, threads);
        expectTheSameOnOneProcessor({"h265"}, threads);
    }
    expectTheSameOnOneProcessor({"h264", FieldOrder::BottomFirst}, 2);
}

// Otherwise the test above would say nothing.
TEST(EncoderThreads, TheBytesFollowTheirNumber) {
    for (const char* codec : {"h264", "h265"}) {
        const CodedNoise coded{codec};
        EXPECT_FALSE(coded.with(1, 64) == coded.with(8, 64)) << codec;
    }
}

TEST(EncoderThreads, OneAloneKeepsTheLimitOfTheRate) {
    constexpr double kLimited = 0.7;
    for (const char* codec : {"h264", "h265"}) {
        const CodedNoise coded{codec};
        const double whole = static_cast<double>(coded.with(1, 64).size());
        EXPECT_LT(static_cast<double>(coded.with(1).size()), kLimited * whole) << codec;
        EXPECT_TRUE(coded.with(4) == coded.with(4, 64)) << codec;
    }
}

/// A clip of a frame a second in a codec that codes each frame by itself, with the sound and the
/// subtitles of `source`.
std::string slowClip(const std::filesystem::path& source, const std::string& codec, int threads) {
    const files::TempFolder folder;
    const auto file = folder.file("a.mkv");
    constexpr FrameSize kSize = {64, 48};
    constexpr int kFrames = 80;
    WriteOptions options{.size = kSize, .rate = {1, 1}};
    options.codec = codec;
    options.encoderThreads = threads;
    options.copied.path = source;
    const auto writer = openWriter(file, options);
    for (unsigned k = 0; k < kFrames; ++k) writer->write(k, noiseFrame(kSize, Depth::Bits8, k));
    writer->finish();
    return contentOf(file);
}

// Frame threads hold frames back, here for longer than the muxer waits for a stream without
// packets.
TEST(EncoderThreads, DoNotMoveSoundAndSubtitlesInTheFile) {
    const files::TempFolder folder;
    std::ofstream(folder.file("words.srt")) << "1\n00:00:01,000 --> 00:00:02,000\nFirst\n\n"
                                               "2\n00:01:10,000 --> 00:01:12,000\nLast\n";
    const auto source = folder.file("source.mkv");
    runFfmpeg(
        "-f lavfi -i color=size=64x48:rate=1:duration=80 -f lavfi -i "
        "sine=frequency=440:duration=80 -i " +
            quoted(folder.file("words.srt")) + " -c:v ffv1 -c:a aac -strict -2 -c:s srt",
        source);
    for (const char* codec : {"ffv1", "prores-422", "prores-4444"}) {
        const std::string bytes = slowClip(source, codec, 1);
        EXPECT_TRUE(slowClip(source, codec, 64) == bytes) << codec;
    }
}

TEST(EncoderThreads, AreOfVideoAlone) {
    for (const char* file : {"a.mp4", "a.mkv", "a.mov", "a.mxf"}) {
        EXPECT_EQ(storageFault(file, {.encoderThreads = 4}), "");
    }
    for (const int number : {0, -1, kMostEncoderThreads + 1}) {
        EXPECT_NE(storageFault("a.mp4", {.encoderThreads = number}).find("from 1 to"),
                  std::string::npos);
    }
    EXPECT_NE(storageFault("a.%d.png", {.encoderThreads = 4}), "");
    EXPECT_NE(storageFault("a.y4m", {.encoderThreads = 4}), "");
}

TEST(EncoderThreads, ALimitThatTheyLiftIsSaid) {
    EXPECT_NE(unlimitedRate("a.mp4", {.encoderThreads = 2}), "");
    EXPECT_EQ(unlimitedRate("a.mp4", {.encoderThreads = 1}), "");
    EXPECT_EQ(unlimitedRate("a.mp4", {.quality = 64, .encoderThreads = 2}), "");
    EXPECT_NE(unlimitedRate("a.mp4", {.codec = "h265", .encoderThreads = 2}), "");
    EXPECT_EQ(unlimitedRate("a.mp4", {}), "");
    EXPECT_EQ(unlimitedRate("a.mov", {.encoderThreads = 2}), "");
}

}  // namespace
}  // namespace ruvex::media
