#include "media/video/container_end.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "media/frame_reader.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

struct MuxedClip {
    const char* name;
    const char* format;  ///< The libraries' name of the demuxer.
    const char* coding;  ///< Arguments of the ffmpeg command.
};

constexpr MuxedClip kClips[] = {
    {"a.mkv", "matroska,webm", "-c:v libx264 -c:a aac"},
    {"a.webm", "matroska,webm", "-c:v libvpx -c:a libopus"},
    {"a.mp4", "mov,mp4,m4a,3gp,3g2,mj2", "-c:v libx264 -c:a aac"},
    {"fast.mp4", "mov,mp4,m4a,3gp,3g2,mj2", "-c:v libx264 -c:a aac -movflags +faststart"},
    {"pieces.mp4", "mov,mp4,m4a,3gp,3g2,mj2",
     "-c:v libx264 -g 10 -c:a aac -movflags +frag_keyframe+empty_moov"},
    {"a.mov", "mov,mp4,m4a,3gp,3g2,mj2", "-c:v mpeg4 -c:a pcm_s16le"},
    {"a.avi", "avi", "-c:v mpeg4 -c:a pcm_s16le"},
    {"h264.avi", "avi", "-c:v libx264 -c:a mp3"},
    {"a.gif", "gif", "-an"},
    {"a.y4m", "yuv4mpegpipe", "-an -pix_fmt yuv420p"},
    {"a.flv", "flv", "-c:v flv -c:a mp3 -ar 44100"},
    {"a.wmv", "asf", "-c:v wmv2 -c:a wmav2"},
    {"a.ogv", "ogg", "-c:v libtheora -c:a libvorbis"},
    {"a.mxf", "mxf", "-c:v mpeg2video -c:a pcm_s16le -ar 48000"},
};
constexpr std::uint64_t kFrameBytes = 96 * 64 * 3 / 2;
constexpr int kFrames = 50;

std::string arguments(const MuxedClip& clip) {
    return movingPicture("96x64", "25", 2) + " -f lavfi -i sine=frequency=440 -t 3 " + clip.coding +
           " -frames:v " + std::to_string(kFrames);
}

std::string storedBytes(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool isCutOffText(const std::string& bytes, const char* format) {
    std::istringstream stream(bytes);
    return isCutOff(stream, format, kFrameBytes);
}

/// As the ffprobe command counts them: "nb_read_frames=50". An MXF lacks the last ones, whose sound
/// the muxer waits for.
std::string probedFrames(const std::filesystem::path& file) {
    return probe(file, "stream=nb_read_frames");
}

std::int64_t readFrames(const std::filesystem::path& file) {
    const auto reader = openReader(file);
    Frame frame;
    std::int64_t count = 0;
    while (reader->read(count, frame)) {
        ++count;
    }
    return count;
}

class ContainerEnd : public testing::TestWithParam<MuxedClip> {};

TEST_P(ContainerEnd, IsMissedWhereverAFileIsCutOff) {
    files::TempFolder folder;
    const auto file = folder.file(GetParam().name);
    runFfmpeg(arguments(GetParam()), file);
    EXPECT_GT(readFrames(file), kFrames - 3);
    EXPECT_EQ("nb_read_frames=" + std::to_string(readFrames(file)) + "\n", probedFrames(file));
    const std::string whole = storedBytes(file);
    EXPECT_FALSE(isCutOffText(whole, GetParam().format));
    for (const double part : {0.2, 0.35, 0.5, 0.6, 0.77, 0.9, 0.98}) {
        const auto length = static_cast<std::size_t>(static_cast<double>(whole.size()) * part);
        EXPECT_TRUE(isCutOffText(whole.substr(0, length), GetParam().format)) << part;
        std::ofstream(file, std::ios::binary) << whole.substr(0, length);
        const std::string said = complaintOf([&] { readFrames(file); });
        EXPECT_NE(said.find(file.string()), std::string::npos) << part << said;
        EXPECT_NE(said.find("cut off"), std::string::npos) << part << said;
    }
}

// A pipe cannot go back to store lengths.
TEST_P(ContainerEnd, IsNotMissedInWhatWasWrittenToAPipe) {
    const std::string name = GetParam().name;
    if (std::string(GetParam().format).starts_with("mov") && name != "pieces.mp4") {
        GTEST_SKIP() << "such files cannot be written to a pipe";
    }
    files::TempFolder folder;
    const std::string muxer = std::filesystem::path(name).extension().string().substr(1);
    const std::string format = muxer == "mkv"   ? "matroska"
                               : muxer == "y4m" ? "yuv4mpegpipe"
                               : muxer == "wmv" ? "asf"
                                                : muxer;
    const auto file = folder.file(name);
    const std::string command = "ffmpeg -nostdin -v error -y " + arguments(GetParam()) + " -f " +
                                format + " pipe:1 </dev/null | cat >" + quoted(file);
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_GT(readFrames(file), kFrames - 3);
    EXPECT_EQ("nb_read_frames=" + std::to_string(readFrames(file)) + "\n", probedFrames(file));
}

INSTANTIATE_TEST_SUITE_P(Clips, ContainerEnd, testing::ValuesIn(kClips), [](const auto& tested) {
    std::string name = tested.param.name;
    name[name.find('.')] = '_';
    return name;
});

TEST(ContainerEnd, IsFoundBesideAnAttachmentThatCannotBeDecoded) {
    files::TempFolder folder;
    const auto file = folder.file("a.mkv");
    std::ofstream(folder.file("blob")) << std::string(3000, 'x');
    runFfmpeg(movingPicture("96x64", "25", 4) + " -c:v libx264 -attach " +
                  quoted(folder.file("blob")) + " -metadata:s:t mimetype=application/octet-stream",
              file);
    EXPECT_EQ(readFrames(file), 100);
    cutTo(file, 0.5);
    EXPECT_NE(complaintOf([&] { readFrames(file); }).find("cut off"), std::string::npos);
}

// The index of an AVI is not required, and some programs count the header in the file's length.
TEST(ContainerEnd, OfAnAviWithoutAnIndexIsThere) {
    files::TempFolder folder;
    const auto file = folder.file("a.avi");
    runFfmpeg(movingPicture("96x64", "25", 2) + " -c:v mpeg4", file);
    std::string bytes = storedBytes(file);
    bytes.resize(bytes.find("idx1"));
    const auto storeLength = [&](std::size_t length) {
        for (int i = 0; i < 4; ++i) {
            bytes[static_cast<std::size_t>(4 + i)] = static_cast<char>(length >> (8 * i));
        }
        std::ofstream(file, std::ios::binary) << bytes;
    };
    storeLength(bytes.size() - 8);
    EXPECT_EQ(readFrames(file), 50);
    storeLength(bytes.size());
    EXPECT_EQ(readFrames(file), 50);
}

TEST(ContainerEnd, BytesBehindItDoNoHarm) {
    files::TempFolder folder;
    for (const char* name : {"a.gif", "a.mp4", "a.avi"}) {
        const auto file = folder.file(name);
        runFfmpeg(movingPicture("96x64", "25", 1), file);
        std::ofstream(file, std::ios::binary | std::ios::app) << std::string(9, '\0');
        EXPECT_EQ(readFrames(file), 25) << name;
    }
}

TEST(ContainerEnd, OfAnEditedFileIsThere) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("96x64", "25", 4) + " -c:v libx264 -g 12", folder.file("a.mp4"));
    runFfmpeg("-ss 1.5 -i " + quoted(folder.file("a.mp4")) + " -t 1 -c copy", folder.file("b.mp4"));
    EXPECT_EQ(complaintOf([&] { EXPECT_GT(readFrames(folder.file("b.mp4")), 20); }), "");
}

}  // namespace
}  // namespace ruvex::media
