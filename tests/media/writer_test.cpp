#include <cerrno>
#include <fstream>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "files/partial_file.h"
#include "files/whole_file.h"
#include "media/frame_writer.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

using Names = std::vector<std::string>;

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class AbandonedWriter : public testing::TestWithParam<const char*> {};

TEST_P(AbandonedWriter, LeavesNothing) {
    files::TempFolder folder;
    {
        const auto writer = openWriter(folder.file(GetParam()), {.size = {64, 64}});
        for (int k = 0; k < 5; ++k) {
            writer->write(k, noiseFrame({64, 64}, Depth::Bits8, 1));
            EXPECT_FALSE(std::filesystem::exists(folder.file(GetParam())));
        }
    }
    EXPECT_EQ(folder.names(), Names{});
}

TEST_P(AbandonedWriter, LeavesAnOlderFileAsItWas) {
    files::TempFolder folder;
    std::ofstream(folder.file(GetParam())) << "older";
    openWriter(folder.file(GetParam()), {.size = {64, 64}})
        ->write(0, noiseFrame({64, 64}, Depth::Bits8, 1));
    EXPECT_EQ(contentOf(folder.file(GetParam())), "older");
    EXPECT_EQ(folder.names(), Names{GetParam()});
}

TEST_P(AbandonedWriter, FinishedItIsThereAlone) {
    files::TempFolder folder;
    std::ofstream(folder.file(GetParam())) << "older";
    const auto writer = openWriter(folder.file(GetParam()), {.size = {64, 64}});
    writer->write(0, noiseFrame({64, 64}, Depth::Bits8, 1));
    writer->finish();
    EXPECT_GT(std::filesystem::file_size(folder.file(GetParam())), 100u);
    EXPECT_EQ(folder.names(), Names{GetParam()});
}

INSTANTIATE_TEST_SUITE_P(Videos, AbandonedWriter, testing::Values("a.mp4", "a.mov", "a.mkv"));

TEST(FrameWriter, AnUnknownEndingListsTheKnownOnes) {
    files::TempFolder folder;
    for (const char* name : {"a.avi", "a.gif", "a", "a.png.gz"}) {
        const std::string said = complaintOf([&] {
            openWriter(folder.file(name), {.size = {4, 4}});
        });
        EXPECT_NE(said.find(name), std::string::npos) << said;
        EXPECT_NE(said.find(".mkv"), std::string::npos) << said;
        EXPECT_FALSE(canWrite(name));
    }
    EXPECT_TRUE(canWrite("A.MP4"));
    EXPECT_EQ(folder.names(), Names{});
}

TEST(FrameWriter, AMissingFolderIsNamed) {
    files::TempFolder folder;
    for (const char* name : {"none/a.mp4", "none/a.mkv"}) {
        const std::string said = complaintOf([&] {
            openWriter(folder.file(name), {.size = {4, 4}});
        });
        EXPECT_NE(said.find("folder does not exist"), std::string::npos) << said;
    }
    const auto writer = openWriter(folder.file("none/a.png"), {.size = {4, 4}});
    EXPECT_NE(complaintOf([&] {
                  writer->write(0, noiseFrame({4, 4}, Depth::Bits8, 1));
              }).find("folder does not exist"),
              std::string::npos);
}

TEST(FrameWriter, DevicesAndFoldersAreNotReplaced) {
    files::TempFolder folder;
    std::filesystem::create_directory(folder.file("a.png"));
    const auto writer = openWriter(folder.file("a.png"), {.size = {4, 4}});
    EXPECT_NE(complaintOf([&] { writer->write(0, noiseFrame({4, 4}, Depth::Bits8, 1)); }), "");
    EXPECT_TRUE(std::filesystem::is_directory(folder.file("a.png")));
    EXPECT_NE(complaintOf([] { files::PartialFile partial("/dev/null"); }), "");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(WriteFailure, AFullDiskHasItsOwnWords) {
    EXPECT_NE(files::writeFailure("a.mp4", ENOSPC).find("disk is full"), std::string::npos);
    EXPECT_NE(files::writeFailure("a.mp4", EDQUOT).find("disk is full"), std::string::npos);
    EXPECT_NE(files::writeFailure("a.mp4", EACCES).find("a.mp4"), std::string::npos);
}

std::string writeMuch(const std::filesystem::path& file) {
    return complaintOf([&] {
        const auto writer = openWriter(file, {.size = {256, 256}});
        for (int k = 0; k < 20; ++k) {
            writer->write(k, noiseFrame({256, 256}, Depth::Bits8, static_cast<unsigned>(k)));
        }
        writer->finish();
    });
}

/// Runs `body` in a child process, whose exit status is its result.
template <class Body>
int inChild(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class NoRoom : public testing::TestWithParam<const char*> {};

// A limit on file size, in place of a full disk: in both cases a write fails midway.
TEST_P(NoRoom, AFailedWriteIsSaidAndNothingIsLeft) {
    files::TempFolder folder;
    const int result = inChild([&] {
        const rlimit bound{100000, 100000};
        signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &bound);
        return writeMuch(folder.file(GetParam())).find("larger than is allowed") ==
               std::string::npos;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(folder.names(), Names{});
}

TEST_P(NoRoom, AFullDiskIsSaidAndNothingIsLeft) {
    files::TempFolder folder;
    if (mount("tmpfs", folder.path().c_str(), "tmpfs", 0, "size=100k") != 0) {
        GTEST_SKIP() << "mounting a small disk takes root";
    }
    const std::string said = writeMuch(folder.file(GetParam()));
    const Names left = folder.names();
    umount(folder.path().c_str());
    EXPECT_NE(said.find("disk is full"), std::string::npos) << said;
    EXPECT_EQ(left, Names{});
}

INSTANTIATE_TEST_SUITE_P(Kinds, NoRoom,
                         testing::Values("a.mp4", "a.mkv", "a.png", "a.exr", "a.rgba8"));

/// How many frames a writer has reported as written after each of `frames` calls of `write`, and
/// after `finish`.
std::vector<int> reportsOf(const std::filesystem::path& path, int frames) {
    int reported = 0;
    std::vector<int> reports;
    const auto writer = openWriter(path, {.size = {32, 16}, .written = [&] { ++reported; }});
    for (int k = 0; k < frames; ++k) {
        writer->write(k, noiseFrame({32, 16}, Depth::Bits8, static_cast<unsigned>(k)));
        reports.push_back(reported);
    }
    writer->finish();
    reports.push_back(reported);
    return reports;
}

TEST(WrittenFrames, AreReportedWhenTheyHaveLeftTheEncoder) {
    const files::TempFolder folder;
    EXPECT_EQ(reportsOf(folder.file("out.%d.png"), 3), (std::vector{1, 2, 3, 3}));
    EXPECT_EQ(reportsOf(folder.file("out.y4m"), 3), (std::vector{1, 2, 3, 3}));
    // The encoder looks ahead before it codes a frame.
    EXPECT_EQ(reportsOf(folder.file("out.mp4"), 3), (std::vector{0, 0, 0, 3}));
}

}  // namespace
}  // namespace ruvex::media
