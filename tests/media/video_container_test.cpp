// Packets into a file that is whole or not there.

#include "media/video/video_container.h"

#include <gtest/gtest.h>
#include <iterator>

#include "media/video/picture_encoder.h"
#include "media/video/write_failure.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

constexpr FrameSize kTiny = {16, 16};
constexpr int kCoded = 3;

std::ptrdiff_t openDescriptors() {
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return std::distance(begin(descriptors), end(descriptors));
}

/// Frames as packets of FFV1.
struct CodedFrames {
    files::TempFolder folder;
    WriteOptions options{.size = kTiny};
    const VideoCodec& codec = *findVideoCodec("a.mkv");
    PictureEncoder encoder{codec, "a.mkv", options, true};

    /// Writes the frames, and says that there are `frames`.
    void writeTo(const std::filesystem::path& file, std::int64_t frames) {
        VideoContainer container(file, codec, encoder.coder(), options);
        const AvPacket packet = newAvPacket();
        const auto writeReady = [&] {
            while (encoder.receive(*packet)) container.write(*packet);
        };
        for (unsigned k = 0; k < kCoded; ++k) {
            encoder.send(noiseFrame(kTiny, Depth::Bits8, k));
            writeReady();
        }
        encoder.drain();
        writeReady();
        container.finish(frames);
    }
};

TEST(VideoContainer, WithAnotherNumberOfFramesThanWereCodedIsNotThere) {
    for (const int wrong : {kCoded - 1, kCoded + 1}) {
        CodedFrames coded;
        const auto file = coded.folder.file("a.mkv");
        const std::string said = complaintOf([&] { coded.writeTo(file, wrong); });
        EXPECT_NE(said.find("3 frames instead of " + std::to_string(wrong)), std::string::npos)
            << said;
        EXPECT_EQ(coded.folder.names(), std::vector<std::string>{});
    }
    CodedFrames coded;
    coded.writeTo(coded.folder.file("a.mkv"), kCoded);
    EXPECT_EQ(readAll(coded.folder.file("a.mkv")).size(), 3u);
}

// MXF does not know FFV1, which its muxer says when it writes the header.
TEST(VideoContainer, WhoseHeaderCannotBeWrittenLeavesNoFileOpen) {
    CodedFrames coded;
    const auto before = openDescriptors();
    const std::string said =
        complaintOf([&] { coded.writeTo(coded.folder.file("a.mxf"), kCoded); });
    EXPECT_NE(said, "");
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(coded.folder.names(), std::vector<std::string>{});
}

}  // namespace
}  // namespace ruvex::media
