// The frames of a chunk are counted.

#include "media/video/chunk_reader.h"

#include <gtest/gtest.h>

#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

std::int64_t packetsOf(const std::filesystem::path& file) {
    VideoFile video(file);
    const AvPacket packet = newAvPacket();
    std::int64_t count = 0;
    while (video.next(*packet)) ++count;
    return count;
}

// The decoder leaves out what comes before the first key frame.
TEST(ChunkReader, CountsThePicturesAndNotThePacketsAlone) {
    const files::TempFolder folder;
    const auto whole = folder.file("whole.mkv");
    const auto file = folder.file("0-19.mkv");
    runFfmpeg(movingPicture("64x48", "25", 1) + " -c:v libx264 -g 10 -bf 0", whole);
    runFfmpeg("-i " + quoted(whole) + " -c copy -copyinkf -bsf:v 'noise=drop=lt(n\\,4)'", file);
    const std::int64_t packets = packetsOf(file);
    ASSERT_GT(packets, 10);
    EXPECT_EQ(digestOfChunk({file, "0-19", packets}).size(), 32u);
    ChunkReader reader({file, "0-19", packets}, true);
    const VideoFile like(file);
    const AvCodec coder = newAvCodec(avcodec_find_decoder(like.stream().codecpar->codec_id));
    avcodec_parameters_to_context(coder.get(), like.stream().codecpar);
    const AvFrame picture = newAvFrame();
    std::int64_t pictures = 0;
    while (reader.next(*picture, *coder)) ++pictures;
    ASSERT_LT(pictures, packets);
    const std::string said = complaintOf([&] { reader.finish(); });
    EXPECT_NE(said.find("holds " + std::to_string(pictures) + " frames instead of " +
                        std::to_string(packets)),
              std::string::npos)
        << said;
}

}  // namespace
}  // namespace ruvex::media
