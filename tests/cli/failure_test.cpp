// Disks, folders and files that fail while a clip is rendered.

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include "cli/shell_text.h"
#include "files/partial_file.h"
#include "files/read_file.h"
#include "files/whole_file.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using Bytes = std::vector<std::byte>;

struct Failure : testing::Test {
    static constexpr int kFrames = 8;

    Failure() {
        for (int k = 0; k < kFrames; ++k) {
            media::writeRawFrame(
                folder.file("in." + std::to_string(k) + ".rgba8"),
                media::noiseFrame({120, 90}, media::Depth::Bits8, static_cast<unsigned>(k)));
        }
    }

    Arguments command(const std::filesystem::path& output) const {
        return {"render", folder.file("in.%d.rgba8"), "-o",        output, "--size", "120x90",
                "--set",  "Master Breakup=0",         "--workers", "1"};
    }

    /// The names in a folder.
    static std::size_t countIn(const std::filesystem::path& place) {
        const auto all = std::filesystem::directory_iterator(place);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    files::TempFolder folder;
};

/// A disk of its own, as long as it lives, if the system lets us have one.
class SmallDisk {
public:
    SmallDisk(std::filesystem::path place, const char* options) : place_(std::move(place)) {
        std::filesystem::create_directory(place_);
        mounted_ = mount("tmpfs", place_.c_str(), "tmpfs", 0, options) == 0;
    }
    ~SmallDisk() {
        if (mounted_) umount2(place_.c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool mounted() const { return mounted_; }
    void makeReadOnly() const {
        mount("tmpfs", place_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr);
    }

private:
    std::filesystem::path place_;
    bool mounted_ = false;
};

TEST_F(Failure, AFullDiskIsSaidAndTheEarlierVideoKept) {
    const SmallDisk disk(folder.file("disk"), "size=160k");
    if (!disk.mounted()) GTEST_SKIP() << "no file systems can be mounted here";
    const auto output = folder.file("disk") / "out.mkv";
    files::writeWhole(output, Bytes(1000, std::byte{7}));
    const Outcome outcome = ruvex(command(output));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "the disk is full")) << outcome.err;
    EXPECT_EQ(files::readWhole(output), Bytes(1000, std::byte{7}));
    EXPECT_EQ(countIn(folder.file("disk")), 1u);
}

TEST_F(Failure, AFullDiskEndsASequenceAfterItsLastWholePicture) {
    const SmallDisk disk(folder.file("disk"), "size=160k");
    if (!disk.mounted()) GTEST_SKIP() << "no file systems can be mounted here";
    const Outcome outcome = ruvex(command(folder.file("disk") / "out.%d.rgba8"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "the disk is full")) << outcome.err;
    // Three pictures of 43200 bytes have room on it.
    EXPECT_EQ(countIn(folder.file("disk")), 3u);
    for (int k = 0; k < 3; ++k) {
        const auto file = folder.file("disk") / ("out." + std::to_string(k) + ".rgba8");
        EXPECT_EQ(std::filesystem::file_size(file), 43200u);
    }
}

TEST_F(Failure, AReadOnlyFolderIsSaid) {
    const SmallDisk disk(folder.file("disk"), "size=160k");
    if (!disk.mounted()) GTEST_SKIP() << "no file systems can be mounted here";
    disk.makeReadOnly();
    for (const char* name : {"out.mkv", "out.%d.png"}) {
        const Outcome outcome = ruvex(command(folder.file("disk") / name));
        EXPECT_EQ(outcome.status, 1) << name;
        EXPECT_TRUE(holds(outcome.err, "Read-only")) << outcome.err;
    }
    EXPECT_EQ(countIn(folder.file("disk")), 0u);
}

TEST_F(Failure, AFileBeyondTheLimitIsSaid) {
    std::string line = "ulimit -f 80; " RUVEX_COMMAND;
    for (const std::string& word : command(folder.file("out.mkv"))) {
        line.append(" ").append(shellQuoted(word));
    }
    line += " 2>" + shellQuoted(folder.file("said").string());
    const int status = std::system(line.c_str());
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    std::ifstream said(folder.file("said"));
    const std::string text(std::istreambuf_iterator<char>(said), {});
    EXPECT_TRUE(holds(text, "larger than is allowed")) << text;
    EXPECT_EQ(folder.names().size(), std::size_t{kFrames + 1});
}

TEST_F(Failure, AFrameThatVanishedIsNamedAndTheVideoIsNotMade) {
    std::filesystem::remove(folder.file("in.4.rgba8"));
    const Outcome outcome = ruvex(command(folder.file("out.mkv")));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "in.4.rgba8")) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "no such file")) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "--frames 4-4")) << outcome.err;
    EXPECT_EQ(folder.names().size(), std::size_t{kFrames - 1});
}

TEST_F(Failure, AFrameThatChangedItsSizeIsNamed) {
    for (const std::uintmax_t size : {43199u, 43201u, 0u}) {
        std::filesystem::resize_file(folder.file("in.4.rgba8"), size);
        const Outcome outcome = ruvex(command(folder.file("out.mkv")));
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(holds(outcome.err, "in.4.rgba8")) << outcome.err;
        EXPECT_TRUE(holds(outcome.err, std::to_string(size))) << outcome.err;
    }
}

TEST_F(Failure, WhatARunningProgramWritesIsNotTakenAway) {
    files::PartialFile running(folder.file("out.mkv"));
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(running.path(), longAgo);
    const auto abandoned = folder.file(".out.mkv.partial-1-0");
    const auto another = folder.file(".other.mkv.partial-1-0");
    for (const auto& file : {abandoned, another}) {
        std::ofstream(file) << "x";
        std::filesystem::last_write_time(file, longAgo);
    }
    EXPECT_EQ(ruvex(command(folder.file("out.mkv"))).status, 0);
    EXPECT_TRUE(std::filesystem::exists(running.path()));
    EXPECT_FALSE(std::filesystem::exists(abandoned));
    EXPECT_TRUE(std::filesystem::exists(another));
}

int shell(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ParameterInput, APipeIsReadToItsEnd) {
    const std::string level = RUVEX_COMMAND " level --frames 0-0 --params /dev/stdin >/dev/null";
    EXPECT_EQ(shell("(printf '{\"Resol'; sleep 0.2; printf 'ution\": 50}') | " + level), 0);
    EXPECT_EQ(shell("printf '{\"Resol' | " + level + " 2>/dev/null"), 1);
    EXPECT_EQ(shell("printf '' | " + level + " 2>/dev/null"), 1);
}

TEST(ParameterInput, MoreThanSixteenMegabytesAreRefused) {
    files::TempFolder folder;
    const auto file = folder.file("look.json");
    std::ofstream(file) << "{}";
    const auto level = [&] {
        return ruvex({"level", "--frames", "0-0", "--params", file.string()});
    };
    EXPECT_EQ(level().status, 0);
    std::filesystem::resize_file(file, (std::uintmax_t{16} << 20) + 1);
    const Outcome outcome = level();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "larger than 16 MB")) << outcome.err;
    // A pipe without an end ends the command too.
    EXPECT_EQ(shell("yes | " RUVEX_COMMAND " level --frames 0-0 --params /dev/stdin 2>/dev/null"),
              1);
}

}  // namespace
}  // namespace ruvex::cli
