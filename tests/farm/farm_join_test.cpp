// The joins of farm jobs.

#include <unistd.h>

#include "tests/farm/fake_scheduler.h"
#include "tests/media/test_clips.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;
using cli::holds;
using cli::Outcome;

struct FarmJoin : FakeScheduler {
    Outcome join(bool verify = false) const {
        return farm(verify ? cli::Arguments{"join", path("out.farm"), "0", "--verify"}
                           : cli::Arguments{"join", path("out.farm"), "0"});
    }

    /// A video of ten frames in two chunks, which are rendered.
    void renderVideo() const {
        media::runFfmpeg(media::movingPicture("64x48", "25", 0.4) + " -c:v libx264",
                         path("in.mp4"));
        ASSERT_EQ(farm({"submit", path("in.mp4"), "-o", path("out.mkv"), "--folder",
                        path("out.farm"), "--chunk", "5"})
                      .status,
                  0);
        for (const int chunk : {0, 1}) ASSERT_EQ(runTask("task", chunk), 0);
    }

    void damage(const std::string& name) const {
        std::string bytes = text(name);
        char& one = bytes[bytes.size() / 2];
        one = static_cast<char>(one ^ 1);
        write(name, bytes);
    }
};

TEST_F(FarmJoin, NamesTheChunksThatItLacks) {
    makePictures(9);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 1), 0);
    const Outcome early = join();
    EXPECT_EQ(early.status, 1);
    EXPECT_TRUE(holds(early.err, "lacks the chunks 0, 2-4 of 5. 'ruvex farm resume")) << early.err;
    for (const int k : {0, 2, 3, 4}) ASSERT_EQ(runTask("task", k), 0);
    EXPECT_EQ(join(true).status, 0);
    EXPECT_TRUE(holds(join().err, "was done before"));
}

TEST_F(FarmJoin, ThatVerifiesHasChangedPicturesRenderedAgain) {
    for (const bool keepsOlder : {false, true}) {
        makePictures(6);
        ASSERT_EQ(submit(keepsOlder ? cli::Arguments{"--resume"} : cli::Arguments{}).status, 0);
        for (const int chunk : {0, 1, 2}) ASSERT_EQ(runTask("task", chunk), 0);
        ASSERT_EQ(join().status, 0);
        const std::string whole = text("out.1.rgba8");
        damage("out.1.rgba8");
        damage("out.4.rgba8");
        EXPECT_EQ(join().status, 0);
        const Outcome verified = join(true);
        EXPECT_EQ(verified.status, 1);
        EXPECT_TRUE(holds(verified.err, "The pictures of the chunks 0, 2 are not those"))
            << verified.err;
        const Outcome resumed = farm({"resume", path("out.farm")});
        EXPECT_TRUE(holds(resumed.err, "2 chunks and 1 join submitted, 1 chunk done before"))
            << resumed.err;
        for (const int chunk : {0, 2}) ASSERT_EQ(runTask("task", chunk), 0);
        EXPECT_TRUE(text("out.1.rgba8") == whole);
        EXPECT_EQ(join(true).status, 0);
        fs::remove_all(folder.file("out.farm"));
    }
}

// A machine without rights, or a disk that is away for a moment.
TEST_F(FarmJoin, KeepsAChunkThatCannotBeReadForAMoment) {
    if (geteuid() == 0) GTEST_SKIP() << "Everything can be read by root.";
    renderVideo();
    const fs::path chunk = folder.file("out.farm/chunks/0-000001.mkv");
    fs::permissions(chunk, fs::perms::none);
    EXPECT_EQ(join().status, 1);
    fs::permissions(chunk, fs::perms::owner_all);
    EXPECT_EQ(join().status, 0);
}

TEST_F(FarmJoin, HasADamagedChunkRenderedAgain) {
    renderVideo();
    const std::string whole = text("out.farm/chunks/0-000001.mkv");
    damage("out.farm/chunks/0-000001.mkv");
    const Outcome joined = join();
    EXPECT_EQ(joined.status, 1);
    EXPECT_TRUE(holds(joined.err, "0-000001.mkv")) << joined.err;
    EXPECT_TRUE(holds(joined.err, "ruvex farm resume")) << joined.err;
    EXPECT_FALSE(exists("out.mkv"));
    ASSERT_EQ(runTask("task", 1), 0);
    EXPECT_TRUE(text("out.farm/chunks/0-000001.mkv") == whole);
    EXPECT_EQ(join().status, 0);
    EXPECT_TRUE(exists("out.mkv"));
}

TEST_F(FarmJoin, OfAnotherAttemptForgetsHowTheFirstFailed) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    EXPECT_EQ(join().status, 1);
    EXPECT_TRUE(exists("out.farm/failed/join-000000.json"));
    for (const int chunk : {0, 1}) ASSERT_EQ(runTask("task", chunk), 0);
    EXPECT_EQ(join().status, 0);
    EXPECT_FALSE(exists("out.farm/failed/join-000000.json"));
}

TEST_F(FarmJoin, RemovesTheChunksAlsoWhereItEndedBefore) {
    renderVideo();
    const std::string chunk = text("out.farm/chunks/0-000000.mkv");
    ASSERT_EQ(join().status, 0);
    EXPECT_FALSE(exists("out.farm/chunks/0-000000.mkv"));
    // As if it had been killed before it removed this one.
    write("out.farm/chunks/0-000000.mkv", chunk);
    EXPECT_TRUE(holds(join().err, "was done before"));
    EXPECT_FALSE(exists("out.farm/chunks/0-000000.mkv"));
}

// Nobody holds a lock on the file of another clip's task, where machines do not see each other's.
TEST_F(FarmJoin, LeavesWhatTheTasksOfAnotherClipWrite) {
    renderVideo();
    const std::string other = "out.farm/chunks/.1-000002.mkv.partial-1-0";
    const std::string own = "out.farm/chunks/.0-000001.mkv.partial-1-0";
    for (const std::string& name : {other, own}) {
        write(name, "half");
        const fs::path file = folder.file(name);
        fs::last_write_time(file, fs::last_write_time(file) - std::chrono::hours(1));
    }
    ASSERT_EQ(join().status, 0);
    EXPECT_TRUE(exists(other));
    EXPECT_FALSE(exists(own));
}

}  // namespace
}  // namespace ruvex::farm
