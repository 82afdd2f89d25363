#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "media/frame_reader.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

std::string readThrough(const std::filesystem::path& file) {
    return complaintOf([&] {
        const auto reader = openReader(file);
        Frame frame;
        for (std::int64_t k = 0; reader->read(k, frame); ++k) {
        }
    });
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void store(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

class HostileVideo : public testing::TestWithParam<const char*> {};

// Reading any bytes returns pictures or throws MediaError with the name of the file.
TEST_P(HostileVideo, DamagedBytesDoNoHarm) {
    files::TempFolder folder;
    const auto file = folder.file(GetParam());
    runFfmpeg(movingPicture("96x64", "25", 0.4) + " -g 5", file);
    const std::string whole = bytesOf(file);
    std::mt19937 random(1);
    int refused = 0;
    for (int round = 0; round < 40; ++round) {
        std::string bytes = whole;
        const std::size_t reach =
            round % 2 == 0 ? bytes.size() : std::min<std::size_t>(600, bytes.size());
        for (int i = 0; i < 12; ++i) {
            bytes[random() % reach] = static_cast<char>(random());
        }
        store(file, bytes);
        const std::string said = readThrough(file);
        EXPECT_TRUE(said.empty() || said.find(GetParam()) != std::string::npos) << said;
        refused += said.empty() ? 0 : 1;
    }
    // Some damage only changes the picture. If none were noticed, nothing would have been read.
    EXPECT_GT(refused, 0);
}

INSTANTIATE_TEST_SUITE_P(Containers, HostileVideo,
                         testing::Values("a.mp4", "a.mkv", "a.avi", "a.mov", "a.y4m"));

TEST(ChangingVideo, AnotherSizeWithinTheClipIsNamed) {
    files::TempFolder folder;
    const std::string options = " -c:v mpeg2video -q:v 2 -g 5 -bf 0";
    runFfmpeg(movingPicture("96x64", "25", 0.4) + options, folder.file("a.ts"));
    runFfmpeg(movingPicture("128x96", "25", 0.4) + options, folder.file("b.ts"));
    store(folder.file("c.ts"), bytesOf(folder.file("a.ts")) + bytesOf(folder.file("b.ts")));
    const std::string said = readThrough(folder.file("c.ts"));
    EXPECT_NE(said.find("c.ts"), std::string::npos) << said;
}

TEST(ChangingVideo, AFileThatIsCutWhileItIsReadIsNamed) {
    files::TempFolder folder;
    const auto file = folder.file("a.mkv");
    runFfmpeg(movingPicture("192x128", "25", 4) + " -c:v ffv1 -pix_fmt yuv420p", file);
    const auto reader = openReader(file);
    Frame frame;
    ASSERT_TRUE(reader->read(0, frame));
    cutTo(file, 0.5);
    const std::string said = complaintOf([&] {
        for (std::int64_t k = 1; reader->read(k, frame); ++k) {
        }
    });
    EXPECT_NE(said.find("a.mkv"), std::string::npos) << said;
}

}  // namespace
}  // namespace ruvex::media
