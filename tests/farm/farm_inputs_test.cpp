// The clips and masks of a farm job: the same for every task.

#include <chrono>

#include "tests/farm/fake_scheduler.h"
#include "tests/media/test_clips.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;
using cli::holds;
using cli::Outcome;

struct FarmInputs : FakeScheduler {
    /// Gives the file a time that is an hour later.
    void touchLater(const std::string& name) const {
        const fs::path file = folder.file(name);
        fs::last_write_time(file, fs::last_write_time(file) + std::chrono::hours(1));
    }

    std::string failureOf(int chunk) const {
        EXPECT_EQ(runTask("task", chunk), 1);
        return text("out.farm/failed/chunk-00000" + std::to_string(chunk) + ".json");
    }
};

TEST_F(FarmInputs, AClipThatWasChangedIsRefused) {
    media::runFfmpeg(media::movingPicture("64x48", "25", 0.4) + " -c:v libx264", path("in.mp4"));
    ASSERT_EQ(farm({"submit", path("in.mp4"), "-o", path("out.%d.png"), "--chunk", "5"}).status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    media::runFfmpeg(media::movingPicture("64x48", "25", 0.8) + " -c:v libx264", path("in.mp4"));
    EXPECT_TRUE(holds(failureOf(1), "was changed after"));
    std::filesystem::remove(folder.file("in.mp4"));
    EXPECT_TRUE(holds(failureOf(1), "does not see"));
}

TEST_F(FarmInputs, APictureThatWasChangedIsRefused) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    touchLater("in.3.rgba8");
    EXPECT_EQ(runTask("task", 0), 0);
    EXPECT_TRUE(holds(failureOf(1), "in.3.rgba8 was changed after"));
}

TEST_F(FarmInputs, AMaskThatWasChangedIsRefused) {
    makePictures(4);
    media::runFfmpeg("-f lavfi -i color=white:size=6x4 -frames:v 1", path("mask.png"));
    ASSERT_EQ(submit({"--mask", path("mask.png")}).status, 0);
    EXPECT_EQ(runTask("task", 0), 0);
    touchLater("mask.png");
    EXPECT_TRUE(holds(failureOf(1), "mask.png was changed after"));
    fs::remove(folder.file("mask.png"));
    EXPECT_TRUE(holds(failureOf(1), "does not see"));
}

// ".." after a symbolic link is the folder above the one that it leads to.
TEST_F(FarmInputs, KeepTheirNamesBehindASymbolicLink) {
    makePictures(2);
    fs::create_directories(folder.file("data/reels"));
    for (const char* name : {"in.0.rgba8", "in.1.rgba8"}) {
        fs::copy_file(folder.file(name), folder.file("data") / name);
        fs::resize_file(folder.file(name), 5);  // not to be read
    }
    fs::create_directory_symlink(folder.file("data/reels"), folder.file("link"));
    ASSERT_EQ(farm({"submit", path("link/../in.%d.rgba8"), "--size", "6x4", "-o",
                    path("link/../out.%d.rgba8"), "--folder", path("out.farm")})
                  .status,
              0);
    EXPECT_EQ(runTask("task", 0), 0);
    EXPECT_TRUE(exists("data/out.1.rgba8"));
    EXPECT_FALSE(exists("out.1.rgba8"));
}

}  // namespace
}  // namespace ruvex::farm
