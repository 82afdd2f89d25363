// How far a farm job is.

#include <nlohmann/json.hpp>

#include "tests/farm/fake_scheduler.h"

namespace ruvex::farm {
namespace {

using cli::holds;
using cli::Outcome;

struct FarmStatus : FakeScheduler {
    Outcome status() const { return farm({"status", path("out.farm")}); }
};

TEST_F(FarmStatus, CountsWhatIsDoneRunsAndWaits) {
    makePictures(10);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    ASSERT_EQ(runTask("task", 1), 0);
    setQueue({"task|2|RUNNING", "task|3|PENDING", "task|4|PENDING", "join|0|PENDING"});
    const Outcome outcome = status();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(outcome.out.starts_with("4 of 10 frames, 2 of 5 chunks; 1 running, 2 waiting; "))
        << outcome.out;
    EXPECT_TRUE(holds(outcome.out, " frames a second, ")) << outcome.out;
    EXPECT_TRUE(holds(outcome.out, " left\n")) << outcome.out;
}

TEST_F(FarmStatus, TellsWhichChunksFailedAndWhy) {
    makePictures(10);
    ASSERT_EQ(submit().status, 0);
    std::filesystem::remove(folder.file("in.8.rgba8"));
    for (int k = 0; k < 4; ++k) EXPECT_EQ(runTask("task", k), 0);
    EXPECT_EQ(runTask("task", 4), 1);
    const Outcome outcome = status();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.out, "8 of 10 frames, 4 of 5 chunks; 0 running, 0 waiting, 1 failed"))
        << outcome.out;
    EXPECT_TRUE(holds(outcome.out, "chunk 4 (frames 8-9 of out.%d.rgba8) failed on "))
        << outcome.out;
    EXPECT_TRUE(holds(outcome.out, "'ruvex farm resume'")) << outcome.out;
}

TEST_F(FarmStatus, ReadsTheLogOfATaskThatWasKilled) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    const std::string log = "out.farm/logs/ruvex-" + id() + "-task-0_0.txt";
    write(log, "ruvex: chunk 0 begins on n7\n");
    EXPECT_TRUE(holds(status().out, "failed on n7: it ended without a message")) << status().out;
    write(log, "ruvex: chunk 0 begins on n7\nslurmstepd: error: DUE TO TIME LIMIT\n");
    EXPECT_TRUE(holds(status().out, "failed on n7: slurmstepd: error: DUE TO TIME LIMIT"));
    // Another attempt of it is on its way.
    setQueue({"task|0|PENDING"});
    EXPECT_EQ(status().status, 3);
    EXPECT_FALSE(holds(status().out, "failed"));
}

TEST_F(FarmStatus, NoticesTasksThatLeftNoTrace) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    const Outcome outcome = status();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.out, "2 chunks are neither done nor in the queue")) << outcome.out;
    setQueue({"task|0|FAILED", "task|1|FAILED"});
    EXPECT_TRUE(holds(status().out,
                      "1 more failed on n7: it ended as FAILED without a message: n7 "
                      "may not see " +
                          path("out.farm")))
        << status().out;
}

TEST_F(FarmStatus, TellsThatTheSchedulerHoldsTasksBack) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    write("queue", "ruvex-" + id() + "-task-0|1|0|PENDING||launch failed requeued held\n");
    const Outcome outcome = status();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(holds(outcome.out, "holds tasks back: launch failed requeued held."))
        << outcome.out;
}

TEST_F(FarmStatus, WorksWithoutTheScheduler) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    write("bin/squeue", "#!/bin/sh\necho 'squeue: error: no controller' >&2\nexit 1\n");
    const Outcome silent = status();
    EXPECT_EQ(silent.status, 3);
    EXPECT_TRUE(holds(silent.out, "squeue failed: no controller. What waits")) << silent.out;
    setenv("PATH", "/nonexistent", 1);
    const Outcome outcome = status();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(holds(outcome.out, "2 of 4 frames, 1 of 2 chunks")) << outcome.out;
    EXPECT_TRUE(holds(outcome.out, "Slurm is not installed here.")) << outcome.out;
    EXPECT_EQ(runTask("task", 1), 127) << "no shell is in PATH";
    setenv("PATH", searched.c_str(), 1);
    ASSERT_EQ(runTask("task", 1), 0);
    ASSERT_EQ(runTask("join", 0), 0);
    setenv("PATH", "/nonexistent", 1);
    EXPECT_EQ(status().status, 0);
}

TEST_F(FarmStatus, WatchEndsWithTheJob) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    setQueue({"task|0|RUNNING", "task|1|RUNNING", "join|0|PENDING"});
    cli::RunningCommand watching({"farm", "status", path("out.farm"), "--watch"});
    runAll(2);
    std::filesystem::remove(folder.file("queue"));
    const Outcome outcome = watching.wait();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.ends_with("4 of 4 frames, 2 of 2 chunks; complete\n")) << outcome.out;
}

TEST_F(FarmStatus, IsJsonToo) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    setQueue({"task|1|RUNNING", "join|0|PENDING"});
    const Outcome outcome = farm({"status", path("out.farm"), "--json"});
    EXPECT_EQ(outcome.status, 3);
    const auto json = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(json["frames"], 4);
    EXPECT_EQ(json["framesDone"], 2);
    EXPECT_EQ(json["running"], 1);
    EXPECT_EQ(json["complete"], false);
    EXPECT_EQ(farm({"status", path("out.farm"), "--json", "--watch"}).status, 2);
}

}  // namespace
}  // namespace ruvex::farm
