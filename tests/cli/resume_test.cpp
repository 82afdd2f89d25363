#include <gtest/gtest.h>

#include "files/read_file.h"
#include "files/whole_file.h"
#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using files::TempFolder;
using media::Depth;
using Bytes = std::vector<std::byte>;

/// A numbered clip of six frames, and its render as PNG.
struct Resume : testing::Test {
    static constexpr int kFrames = 6;

    Resume() {
        for (int k = 0; k < kFrames; ++k) {
            media::writeRawFrame(
                folder.file("in." + std::to_string(k) + ".rgba8"),
                media::noiseFrame({12, 9}, Depth::Bits8, static_cast<unsigned>(k)));
        }
        EXPECT_EQ(render({}).status, 0);
        for (int k = 0; k < kFrames; ++k) {
            whole.push_back(bytes(k));
        }
    }

    Outcome render(const Arguments& more, const char* output = "out.%03d.png") const {
        Arguments arguments = {"render",    folder.file("in.%d.rgba8"),
                               "-o",        folder.file(output),
                               "--size",    "12x9",
                               "--preset",  "Bad Colour TV",
                               "--workers", "2"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments);
    }

    std::filesystem::path file(int k) const {
        return folder.file("out.00" + std::to_string(k) + ".png");
    }
    Bytes bytes(int k) const { return files::readWhole(file(k)); }
    auto age(int k) const { return std::filesystem::last_write_time(file(k)); }

    TempFolder folder;
    std::vector<Bytes> whole;
};

TEST_F(Resume, MakesWhatIsMissingAndLeavesTheRest) {
    std::filesystem::remove(file(2));
    std::filesystem::remove(file(5));
    const auto kept = age(3);
    const Outcome outcome = render({"--resume", "--verbose", "--jobs", "2"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.err.find("4 exist already"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("2 frames in"), std::string::npos) << outcome.err;
    EXPECT_EQ(age(3), kept);
    for (int k = 0; k < kFrames; ++k) {
        EXPECT_EQ(bytes(k), whole[static_cast<std::size_t>(k)]) << k;
    }
}

TEST_F(Resume, BrokenPicturesAreMadeAgain) {
    std::filesystem::resize_file(file(0), 0);
    std::filesystem::resize_file(file(1), whole[1].size() - 1);
    media::cutTo(file(2), 0.5);
    Bytes changed = whole[3];
    changed[changed.size() / 2] ^= std::byte{0x55};
    files::writeWhole(file(3), changed);
    // A complete picture of another size.
    media::runFfmpeg("-f lavfi -i color=red:size=9x12 -frames:v 1", file(4));
    EXPECT_EQ(render({"--resume"}).status, 0);
    for (int k = 0; k < kFrames; ++k) {
        EXPECT_EQ(bytes(k), whole[static_cast<std::size_t>(k)]) << k;
    }
}

TEST_F(Resume, WithNothingLeftNothingIsMade) {
    const auto kept = age(0);
    EXPECT_EQ(render({"--resume"}).status, 0);
    EXPECT_EQ(age(0), kept);
}

TEST_F(Resume, WithoutItAllIsMadeAgain) {
    std::filesystem::last_write_time(file(0), std::filesystem::file_time_type{});
    EXPECT_EQ(render({}).status, 0);
    EXPECT_NE(age(0), std::filesystem::file_time_type{});
}

TEST_F(Resume, WhatIsMadeInOnePieceCannotBeGoneOnWith) {
    for (const char* name : {"out.mkv", "out.png"}) {
        const Outcome outcome = render({"--resume", "--frames", "0-0"}, name);
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_NE(outcome.err.find("--resume"), std::string::npos) << outcome.err;
    }
}

TEST_F(Resume, ADryRunTellsAndWritesNothing) {
    std::filesystem::remove(file(2));
    const auto before = folder.names();
    const Outcome outcome = render({"--resume", "--dry-run", "--key", "Resolution=0:100 1:50",
                                    "--save-params", folder.file("look.json")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(folder.names(), before);
    for (const char* part :
         {"in.%d.rgba8: 12x9, 8 bits a channel, 25 frames a second, frames 0-5, with alpha",
          "out.%03d.png: 12x9, PNG", "0-5: 6, 0.24 s; 5 exist already", "workers: 2, jobs: 1",
          "Resolution: 0 s 100, 1 s 50"}) {
        EXPECT_NE(outcome.out.find(part), std::string::npos) << part << '\n' << outcome.out;
    }
}

TEST_F(Resume, ADryRunNamesTheParametersThatDiffer) {
    const Outcome outcome = ruvex(
        {"render", folder.file("in.%d.rgba8"), "-o", folder.file("new.mp4"), "--size", "12x9",
         "--dry-run", "--set", "Resolution=40", "--set", "Fish Eye=0", "--set", "Resolution=50"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("Resolution = 50 (default: 100)"), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.out.find("Fish Eye"), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.out.find("= 40"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("H.264"), std::string::npos) << outcome.out;
}

}  // namespace
}  // namespace ruvex::cli
