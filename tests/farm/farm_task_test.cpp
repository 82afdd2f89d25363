// One chunk, whole or not at all.

#include <thread>

#include "tests/farm/fake_scheduler.h"
#include "tests/media/test_clips.h"
#include "tests/support/bytes_read.h"

namespace ruvex::farm {
namespace {

using cli::holds;
using cli::Outcome;

struct FarmTask : FakeScheduler {
    std::filesystem::file_time_type timeOf(const std::string& name) const {
        return std::filesystem::last_write_time(folder.file(name));
    }
};

TEST_F(FarmTask, ThatIsDoneIsNotRenderedAgain) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    const auto picture = timeOf("out.0.rgba8");
    const auto record = timeOf("out.farm/done/chunk-000000.json");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const Outcome again = farm({"task", path("out.farm"), "0"});
    EXPECT_EQ(again.status, 0);
    EXPECT_TRUE(holds(again.err, "was done before")) << again.err;
    EXPECT_EQ(timeOf("out.0.rgba8"), picture);
    EXPECT_EQ(timeOf("out.farm/done/chunk-000000.json"), record);
}

TEST_F(FarmTask, RendersOnlyThePicturesThatAreMissing) {
    makePictures(4);
    ASSERT_EQ(submit({}, "4").status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    const auto kept = timeOf("out.1.rgba8");
    std::filesystem::remove(folder.file("out.2.rgba8"));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ASSERT_EQ(runTask("task", 0), 0);
    EXPECT_EQ(timeOf("out.1.rgba8"), kept);
    ASSERT_EQ(runTask("join", 0), 0);
    expectResultsOfOneMachine(4);
}

TEST_F(FarmTask, DoesNotTakeThePicturesOfAnEarlierRenderForItsOwn) {
    makePictures(4);
    for (const char* number : {"0", "1", "2", "3"}) {
        std::filesystem::copy_file(folder.file(std::string("in.") + number + ".rgba8"),
                                   folder.file(std::string("out.") + number + ".rgba8"));
    }
    ASSERT_EQ(submit({}, "4").status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    ASSERT_EQ(runTask("join", 0), 0);
    expectResultsOfOneMachine(4);
}

TEST_F(FarmTask, KeepsThePicturesOfAnEarlierRenderIfAsked) {
    makePictures(4);
    ASSERT_EQ(submit({}, "4").status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    const auto kept = timeOf("out.1.rgba8");
    std::filesystem::remove_all(folder.file("out.farm"));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ASSERT_EQ(submit({"--resume"}, "4").status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    EXPECT_EQ(timeOf("out.1.rgba8"), kept);
}

// They are replaced one by one, as by a render on one machine, and never removed.
TEST_F(FarmTask, DoesNotReplaceAPictureThatMayNotBeWritten) {
    makePictures(2);
    write("out.1.rgba8", "mine");
    std::filesystem::create_directory(folder.file("out.0.rgba8"));
    ASSERT_EQ(submit().status, 0);
    EXPECT_EQ(runTask("task", 0), 1);
    EXPECT_TRUE(std::filesystem::is_directory(folder.file("out.0.rgba8")));
    EXPECT_EQ(text("out.1.rgba8"), "mine");
}

TEST_F(FarmTask, ThatFailsSaysSoInARecordAndIsRepeated) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    std::filesystem::rename(folder.file("in.3.rgba8"), folder.file("away"));
    EXPECT_EQ(runTask("task", 1), 1);
    EXPECT_TRUE(exists("out.farm/failed/chunk-000001.json"));
    std::filesystem::rename(folder.file("away"), folder.file("in.3.rgba8"));
    EXPECT_EQ(runTask("task", 1), 0);
    EXPECT_FALSE(exists("out.farm/failed/chunk-000001.json"));
}

TEST_F(FarmTask, DoesNotReadTheWholeClip) {
    if (!bytesRead()) GTEST_SKIP() << "This system does not count what a process reads.";
    media::runFfmpeg(
        "-f lavfi -i testsrc2=size=640x480:rate=25 -frames:v 60 -c:v rawvideo -pix_fmt uyvy422",
        path("in.mov"));
    const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(folder.file("in.mov")));
    ASSERT_EQ(farm({"submit", path("in.mov"), "-o", path("out.%d.rgba8"), "--chunk", "1"}).status,
              0);
    const auto readByTask = [&](int number) {
        const std::int64_t before = bytesRead().value();
        EXPECT_EQ(runTask("task", number), 0);
        return bytesRead().value() - before;
    };
    const std::int64_t spared = readByTask(30);
    write("out.farm/jobs/0-out__d.index", "damaged");
    const std::int64_t whole = readByTask(31);
    std::filesystem::remove(folder.file("out.farm/jobs/0-out__d.index"));
    // The program, its libraries and the frame of the task are read in both cases.
    EXPECT_GT(whole - spared, bytes * 9 / 10);
    EXPECT_LT(whole - spared, bytes * 11 / 10);
    EXPECT_NEAR(static_cast<double>(readByTask(32)), static_cast<double>(whole), 1e6);
    EXPECT_EQ(text("out.30.rgba8").size(), text("out.31.rgba8").size());
}

TEST_F(FarmTask, ThatIsStoppedLeavesNothingHalfWritten) {
    media::runFfmpeg(media::movingPicture("480x360", "25", 1.6) + " -c:v libx264", path("in.mp4"));
    ASSERT_EQ(
        farm({"submit", path("in.mp4"), "-o", path("out.%d.png"), "--preset", "Storm"}).status, 0);
    for (const int signal : {SIGTERM, SIGKILL}) {
        cli::RunningCommand running({"farm", "task", path("out.farm"), "0"});
        while (!exists(signal == SIGTERM ? "out.2.png" : "out.6.png") &&
               !running.endsWithin(std::chrono::milliseconds(1))) {
        }
        running.send(signal);
        const Outcome outcome = running.wait();
        EXPECT_EQ(outcome.status, signal == SIGTERM ? 130 : -1);
        EXPECT_FALSE(exists("out.farm/done/chunk-000000.json"));
        EXPECT_FALSE(exists("out.farm/failed/chunk-000000.json"));
    }
    ASSERT_EQ(runTask("task", 0), 0);
    ASSERT_EQ(runTask("join", 0), 0);
}

}  // namespace
}  // namespace ruvex::farm
