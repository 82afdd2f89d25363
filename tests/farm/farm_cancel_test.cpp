#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

#include "farm/cancelling.h"
#include "tests/farm/fake_scheduler.h"

namespace ruvex::farm {
namespace {

using cli::holds;
using cli::Outcome;

struct FarmCancel : FakeScheduler {};

TEST_F(FarmCancel, EndsTasksAndKeepsWhatIsDone) {
    makePictures(6);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    setQueue({"task|1|RUNNING", "task|2|PENDING", "join|0|PENDING"});
    write("out.farm/logs/ruvex-" + id() + "-task-0_1.txt",
          "ruvex: chunk 1 (frames 2-3 of out.%d.rgba8) begins on n0\n"
          "ruvex: chunk 1 (frames 2-3 of out.%d.rgba8) was stopped before its end.\n");
    // What a task that was killed has left, two seconds ago.
    const auto partial = folder.file(".out.2.rgba8.partial-1-0");
    write(".out.2.rgba8.partial-1-0", "half");
    std::filesystem::last_write_time(
        partial, std::filesystem::file_time_type::clock::now() - std::chrono::seconds(2));
    const Outcome outcome = farm({"cancel", path("out.farm")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(calls("scancel"), std::vector<std::string>{"1"});
    EXPECT_FALSE(std::filesystem::exists(partial));
    EXPECT_TRUE(exists("out.0.rgba8"));
    EXPECT_TRUE(exists("out.farm/done/chunk-000000.json"));
    // A task that was cancelled has not failed.
    const Outcome status = farm({"status", path("out.farm")});
    EXPECT_TRUE(holds(status.out, "2 chunks are neither done nor in the queue")) << status.out;
    EXPECT_FALSE(holds(status.out, "failed")) << status.out;
    const Outcome again = farm({"cancel", path("out.farm")});
    EXPECT_EQ(again.status, 0);
    EXPECT_TRUE(holds(again.err, "nothing was in the queue")) << again.err;
}

TEST_F(FarmCancel, DuringASubmissionIsRefused) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    setQueue({"task|0|RUNNING"});
    const int lock = open(path("out.farm/lock").c_str(), O_RDWR | O_CREAT, 0666);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    const Outcome outcome = farm({"cancel", path("out.farm")});
    close(lock);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "is under way. Wait for its end.")) << outcome.err;
    EXPECT_TRUE(calls("scancel").empty());
}

/// A cancellation of a task that does not end.
struct FarmCancelStopped : FarmCancel {
    FarmCancelStopped() {
        makePictures(2);
        EXPECT_EQ(submit().status, 0);
        setQueue({"task|0|RUNNING"});
        write("bin/scancel", "#!/bin/sh\necho \"$@\" >>'" + path("scancel.calls") + "'\n");
        write(".out.0.rgba8.partial-1-0", "half");
        std::filesystem::last_write_time(
            partial, std::filesystem::file_time_type::clock::now() - std::chrono::seconds(2));
    }

    void waitForScancel() const {
        while (calls("scancel").empty()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    std::filesystem::path partial = folder.file(".out.0.rgba8.partial-1-0");
};

TEST_F(FarmCancelStopped, SaysThatTasksMayRun) {
    cli::RunningCommand command({"farm", "cancel", path("out.farm")});
    waitForScancel();
    EXPECT_TRUE(holds(farm({"resume", path("out.farm")}).err, "is under way"));
    command.send(SIGINT);
    const Outcome outcome = command.wait();
    EXPECT_EQ(outcome.status, 130);
    EXPECT_TRUE(holds(outcome.err, "stopped before all tasks had ended")) << outcome.err;
    EXPECT_FALSE(holds(outcome.err, "cancelled;")) << outcome.err;
}

TEST_F(FarmCancelStopped, KeepsWhatTheTasksMayStillWrite) {
    std::stop_source stop;
    const std::jthread stopping([&] {
        waitForScancel();
        stop.request_stop();
    });
    EXPECT_EQ(cancelAll(Farm(path("out.farm")), stop.get_token()), CancelEnd::Stopped);
    EXPECT_TRUE(std::filesystem::exists(partial));
}

TEST_F(FarmCancel, WithoutASchedulerSaysSo) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    setenv("PATH", "/nonexistent", 1);
    const Outcome outcome = farm({"cancel", path("out.farm")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "Slurm is not installed here")) << outcome.err;
}

}  // namespace
}  // namespace ruvex::farm
