// How far a farm job is.

#include <chrono>
#include <nlohmann/json.hpp>

#include "farm/fresh_folder.h"
#include "farm/status.h"
#include "tests/farm/fake_scheduler.h"

namespace ruvex::farm {
namespace {

using cli::Arguments;
using cli::operator+;
using cli::holds;
using cli::Outcome;

struct FarmStatusTest : FakeScheduler {
    Outcome status() const { return farm({"status", path("out.farm")}); }
};

TEST_F(FarmStatusTest, CountsWhatIsDoneRunsAndWaits) {
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

TEST_F(FarmStatusTest, TellsWhichChunksFailedAndWhy) {
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

TEST_F(FarmStatusTest, ReadsTheLogOfATaskThatWasKilled) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    const std::string log = "out.farm/logs/ruvex-" + id() + "-task-0_0.txt";
    write(log, "ruvex: chunk 0 begins on n7\n");
    EXPECT_TRUE(holds(status().out, "failed on n7: it ended without a message")) << status().out;
    write(log,
          "ruvex: chunk 0 begins on n7\nslurmstepd: error: *** JOB 9 ON n7 CANCELLED AT "
          "2026-01-31T10:00:00 DUE TO TIME LIMIT ***\n");
    EXPECT_TRUE(holds(status().out, "failed on n7: it reached its limit on time; resume with"));
    // Another attempt of it is on its way.
    setQueue({"task|0|PENDING"});
    EXPECT_EQ(status().status, 3);
    EXPECT_FALSE(holds(status().out, "failed"));
}

TEST_F(FarmStatusTest, TakesAnEmptyLogForAFullDisk) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    write("out.farm/logs/ruvex-" + id() + "-task-0_0.txt", "");
    EXPECT_TRUE(holds(status().out, "or the disk was full")) << status().out;
}

TEST_F(FarmStatusTest, NoticesTasksThatLeftNoTrace) {
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

TEST_F(FarmStatusTest, TellsThatTheSchedulerHoldsTasksBack) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    write("queue", queueLine("task|0|PENDING", 1, "launch failed requeued held"));
    const Outcome outcome = status();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(holds(outcome.out, "0 running, 1 waiting (launch failed requeued held)"))
        << outcome.out;
    EXPECT_TRUE(holds(outcome.out,
                      "a reason that may last: launch failed requeued held. If it does, "
                      "'ruvex farm cancel', and 'ruvex farm resume' with other options"))
        << outcome.out;
}

TEST_F(FarmStatusTest, TellsWhyNothingRuns) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    for (const char* usual :
         {"None", "Resources", "Priority", "Dependency", "BeginTime", "JobArrayTaskLimit"}) {
        write("queue", queueLine("task|0|PENDING", 1, usual));
        EXPECT_FALSE(holds(status().out, "reason")) << usual;
    }
    const std::string waits = queueLine("task|0|PENDING", 1, "PartitionTimeLimit");
    write("queue", waits);
    EXPECT_TRUE(holds(status().out, "may last: PartitionTimeLimit.")) << status().out;
    // Something runs, and what waits may have its turn afterwards.
    write("queue", waits + queueLine("task|1|RUNNING"));
    EXPECT_FALSE(holds(status().out, "PartitionTimeLimit")) << status().out;
}

TEST_F(FarmStatusTest, ExplainsATaskThatWasAskedToEndByWhatTheSchedulerRemembers) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    writeLog(0, "ruvex: chunk 0 begins on n7\nruvex: chunk 0 was stopped before its end.\n");
    EXPECT_TRUE(holds(status().out, "failed on n7: it was asked to end before it was done"))
        << status().out;
    // Array 10 came after array 9, whatever their texts.
    write("queue", queueLine("task|0|TIMEOUT", 10) + queueLine("task|0|OUT_OF_MEMORY", 9));
    EXPECT_TRUE(holds(status().out, "failed on n7: it reached its limit on time")) << status().out;
}

TEST_F(FarmStatusTest, WithoutAnAnswerOfTheQueueCountsOnlyErrorsAsFailures) {
    makePictures(6);
    ASSERT_EQ(submit().status, 0);
    writeLog(0, "ruvex: chunk 0 begins on n7\n");
    writeLog(1, "ruvex: chunk 1 begins on n8\nruvex: chunk 1 was stopped before its end.\n");
    write("bin/squeue", "#!/bin/sh\necho 'squeue: error: no controller' >&2\nexit 1\n");
    const Outcome quiet = status();
    EXPECT_EQ(quiet.status, 3);
    EXPECT_FALSE(holds(quiet.out, "failed on")) << quiet.out;
    EXPECT_TRUE(holds(quiet.out, "; the queue does not answer")) << quiet.out;
    writeLog(2, "ruvex: chunk 2 begins on n9\nruvex: It does not work.\n");
    const Outcome outcome = status();
    EXPECT_TRUE(holds(outcome.out, ", 1 failed")) << outcome.out;
    EXPECT_TRUE(holds(outcome.out, "failed on n9: It does not work.")) << outcome.out;
    // The others may run.
    EXPECT_EQ(outcome.status, 3);
}

TEST_F(FarmStatusTest, WatchGoesOnWhileTheQueueDoesNotAnswer) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    // Nothing else is known than failures, which would be the end if the queue were empty.
    for (const int k : {0, 1}) writeLog(k, "ruvex: chunk begins on n7\nruvex: It does not work.\n");
    const std::string squeue = text("bin/squeue");
    write("bin/squeue", "#!/bin/sh\nexit 1\n");
    cli::RunningCommand watching({"farm", "status", path("out.farm"), "--watch"});
    EXPECT_FALSE(watching.endsWithin(std::chrono::milliseconds(700)));
    write("bin/squeue", squeue);
    const Outcome outcome = watching.wait();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.out, "the queue does not answer, 2 failed")) << outcome.out;
}

TEST_F(FarmStatusTest, TellsTheSpeedOfTheTasksThatRun) {
    makePictures(10);
    ASSERT_EQ(submit().status, 0);
    const Farm job(path("out.farm"));
    // Two chunks of two frames, in four seconds each; a day lies between them.
    const std::string rest = R"("digest": "", "bytes": 0, "seconds": 4.0, "host": "n7"})";
    write("out.farm/done/chunk-000000.json",
          R"({"firstFrame": 0, "lastFrame": 1, "finished": 1000.0, )" + rest);
    write("out.farm/done/chunk-000001.json",
          R"({"firstFrame": 2, "lastFrame": 3, "finished": 90000.0, )" + rest);
    setQueue({"task|2|RUNNING", "task|3|RUNNING", "task|4|RUNNING", "join|0|PENDING"});
    const FarmStatus three = StatusReader(job).read();
    EXPECT_DOUBLE_EQ(three.framesPerSecond, 1.5);
    EXPECT_DOUBLE_EQ(three.secondsLeft().value_or(0), 4.0);
    EXPECT_EQ(three.videosToJoin, 0);
    setQueue({"task|2|PENDING", "task|3|PENDING", "task|4|PENDING", "join|0|PENDING"});
    EXPECT_FALSE(StatusReader(job).read().secondsLeft());
    EXPECT_FALSE(holds(status().out, "a second"));
}

TEST_F(FarmStatusTest, TellsThatAJoinOfAVideoFollows) {
    makePictures(4);
    ASSERT_EQ(farm(Arguments{"submit"} + rendering("out.mkv") + Arguments{"--no-submit"}).status,
              0);
    EXPECT_EQ(StatusReader(Farm(path("out.mkv.farm"))).read().videosToJoin, 1);
}

TEST_F(FarmStatusTest, ReadsRecordsOfChunksThatArrive) {
    makePictures(6);
    ASSERT_EQ(submit().status, 0);
    const Farm job(path("out.farm"));
    StatusReader reader(job);
    EXPECT_EQ(reader.read().chunksDone, 0);
    ASSERT_EQ(runTask("task", 2), 0);
    EXPECT_EQ(reader.read().chunksDone, 1);
    ASSERT_EQ(runTask("task", 0), 0);
    EXPECT_EQ(reader.read().framesDone, 4);
    // Nothing is left of what made the folders fresh.
    for (const char* folder : {"out.farm/done", "out.farm/failed"}) {
        for (const std::string& name : namesIn(path(folder))) {
            EXPECT_FALSE(holds(name, "partial")) << name;
        }
    }
}

TEST_F(FarmStatusTest, WorksWithoutTheScheduler) {
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

TEST_F(FarmStatusTest, WatchEndsWithTheJob) {
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

TEST_F(FarmStatusTest, IsJsonToo) {
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
