// What `ruvex farm submit` and `plan` make and ask of the scheduler.

#include <algorithm>

#include "tests/farm/fake_scheduler.h"

namespace ruvex::farm {
namespace {

using cli::Arguments;
using cli::operator+;
using cli::holds;
using cli::Outcome;

struct FarmSubmit : FakeScheduler {};

TEST_F(FarmSubmit, AsksForAnArrayAndAJoinThatWaitsForIt) {
    makePictures(9);
    const Outcome outcome =
        submit({"--partition", "long", "--account", "film", "--time", "1:00", "--join-time", "2:00",
                "--max-tasks", "3", "--sbatch=--mem=8G"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "5 chunks of 2 frames submitted")) << outcome.err;
    const auto asked = calls("sbatch");
    ASSERT_EQ(asked.size(), 2u);
    for (const std::string& part :
         {std::string("--job-name=ruvex-") + id() + "-task-0", std::string("--array=0-4%3"),
          "--chdir=" + path("out.farm"), std::string("--partition=long"),
          std::string("--account=film"), std::string("--time=1:00"), std::string("--mem=8G"),
          std::string("--signal=B:TERM@30"), path("out.farm/task.sh") + " task 0"}) {
        EXPECT_TRUE(holds(asked[0], part)) << part << '\n' << asked[0];
    }
    for (const char* part :
         {"-join-0", "--array=0 ", "--dependency=afterany:1 ", "--time=2:00", "task.sh join 0"}) {
        EXPECT_TRUE(holds(asked[1], part)) << part << '\n' << asked[1];
    }
}

TEST_F(FarmSubmit, RendersWhatOneMachineRenders) {
    makePictures(9);
    ASSERT_EQ(submit().status, 0);
    EXPECT_TRUE(holds(text("out.farm/jobs/0-out__d.json"), "\"workers\": 8"));
    runAll(5);
    expectResultsOfOneMachine(9);
    EXPECT_EQ(farm({"status", path("out.farm")}).status, 0);
}

TEST_F(FarmSubmit, TakesASavedJobWithRelativeNames) {
    makePictures(3);
    ASSERT_EQ(
        cli::ruvex(Arguments{"render"} + rendering("out.%d.rgba8") +
                   Arguments{"--frames", "1-2", "--workers", "3", "--save-job", path("job.json")})
            .status,
        0);
    const Outcome outcome = farm({"submit", path("job.json"), "--chunk", "1"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "2 chunks of 1 frame ")) << outcome.err;
    EXPECT_TRUE(holds(text("out.farm/jobs/0-out__d.json"), "\"workers\": 3"));
    runAll(2);
    EXPECT_FALSE(exists("out.0.rgba8"));
    EXPECT_TRUE(exists("out.2.rgba8"));
}

TEST_F(FarmSubmit, CutsSeveralJobsIntoOneArray) {
    makePictures(5);
    for (const char* name : {"a", "b"}) {
        const std::string output = std::string(name) + ".%d.rgba8";
        ASSERT_EQ(cli::ruvex(Arguments{"render"} + rendering(output) +
                             Arguments{"--save-job", path(std::string(name) + ".json")})
                      .status,
                  0);
    }
    const Outcome outcome = farm(
        {"submit", path("a.json"), path("b.json"), "--folder", path("out.farm"), "--chunk", "2"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(holds(calls("sbatch")[0], "--array=0-5 "));
    EXPECT_TRUE(holds(calls("sbatch")[1], "--array=0-1 "));
    for (int k = 0; k < 6; ++k) EXPECT_EQ(runTask("task", k), 0) << k;
    EXPECT_EQ(runTask("join", 0), 0);
    EXPECT_EQ(runTask("join", 1), 0);
    EXPECT_EQ(text("a.4.rgba8"), text("b.4.rgba8"));
    EXPECT_EQ(farm({"status", path("out.farm")}).status, 0);
}

TEST_F(FarmSubmit, PutsManyChunksIntoSeveralArrays) {
    for (int k = 0; k < 1002; ++k)
        write("in." + std::to_string(k) + ".rgba8", std::string(96, 'x'));
    ASSERT_EQ(submit({"--max-tasks", "5"}, "1").status, 0);
    const auto asked = calls("sbatch");
    ASSERT_EQ(asked.size(), 3u);
    EXPECT_TRUE(holds(asked[0], "--array=0-999%5 "));
    EXPECT_TRUE(holds(asked[1], "--array=0-1%5 "));
    EXPECT_TRUE(holds(asked[1], "task.sh task 1000"));
    // The limit is that of one array.
    EXPECT_TRUE(holds(asked[1], "--dependency=afterany:1 "));
    EXPECT_TRUE(holds(asked[2], "--dependency=afterany:1:2 "));
}

TEST_F(FarmSubmit, TakesTheLengthOfArraysFromTheScheduler) {
    makePictures(5);
    write("config", "MaxArraySize            = 3\nMaxJobCount             = 6\n");
    ASSERT_EQ(submit({}, "1").status, 0);
    const auto asked = calls("sbatch");
    ASSERT_EQ(asked.size(), 3u);
    EXPECT_TRUE(holds(asked[0], "--array=0-2 ")) << asked[0];
    EXPECT_TRUE(holds(asked[1], "--array=0-1 ")) << asked[1];
    EXPECT_TRUE(holds(asked[1], "task.sh task 3")) << asked[1];
    // The log of chunk 4 is that of element 1 of the second array.
    write("out.farm/logs/ruvex-" + id() + "-task-3_1.txt",
          "ruvex: chunk 4 begins on n9\nruvex: It does not work.\n");
    EXPECT_TRUE(holds(farm({"status", path("out.farm")}).out, "failed on n9: It does not work."));
}

TEST_F(FarmSubmit, RefusesMoreThanTheSchedulerTakes) {
    makePictures(9);
    write("config", "MaxJobCount             = 5\n");
    const Outcome outcome = submit();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "The 5 chunks and 1 join are more than the 5 jobs"))
        << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "use --chunk 3 or more")) << outcome.err;
    EXPECT_FALSE(exists("out.farm"));
    EXPECT_TRUE(calls("sbatch").empty());
    ASSERT_EQ(submit({}, "3").status, 0);
}

TEST_F(FarmSubmit, WithoutASubmissionAsksNobody) {
    makePictures(9);
    write("config", "MaxJobCount             = 5\n");
    ASSERT_EQ(submit({"--no-submit"}).status, 0);
    for (const char* program : {"scontrol", "squeue", "sbatch"}) {
        EXPECT_TRUE(calls(program).empty()) << program;
    }
}

TEST_F(FarmSubmit, GivesADependencyToTasksAlone) {
    makePictures(4);
    write("config", "MaxArraySize            = 1\n");
    ASSERT_EQ(submit({"--sbatch=--dependency=afterok:99", "--sbatch=--mem=8G", "--max-tasks", "1"})
                  .status,
              0);
    const auto asked = calls("sbatch");
    ASSERT_EQ(asked.size(), 3u);
    EXPECT_TRUE(holds(asked[0], "--dependency=afterok:99")) << asked[0];
    // It waits for the first.
    EXPECT_TRUE(holds(asked[1], "--dependency=afterany:1 ")) << asked[1];
    EXPECT_FALSE(holds(asked[1], "afterok:99")) << asked[1];
    EXPECT_TRUE(holds(asked[2], "--dependency=afterany:1:2 ")) << asked[2];
    EXPECT_FALSE(holds(asked[2], "afterok:99")) << asked[2];
    for (const std::string& call : asked) EXPECT_TRUE(holds(call, "--mem=8G ")) << call;
}

TEST_F(FarmSubmit, RefusesOptionsThatTheFarmSetsItself) {
    makePictures(4);
    const Outcome outcome = submit({"--sbatch=--job-name=mine"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(holds(outcome.err, "--sbatch: '--job-name=mine' cannot be given")) << outcome.err;
    EXPECT_FALSE(exists("out.farm"));
}

TEST_F(FarmSubmit, NoticesAnAnswerThatIsNoNumber) {
    makePictures(4);
    write("bin/sbatch", "#!/bin/sh\necho slurm-wlm 22.05\n");
    const Outcome outcome = submit();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "it says 'slurm-wlm 22.05'")) << outcome.err;
}

TEST_F(FarmSubmit, PrintsTheCommandsForAnotherScheduler) {
    makePictures(5);
    ASSERT_EQ(submit({"--no-submit", "--folder", path("it's.farm")}).status, 0);
    EXPECT_TRUE(calls("sbatch").empty());
    const Outcome plan = farm({"plan", path("it's.farm")});
    EXPECT_EQ(plan.status, 0);
    const Outcome tasks = farm({"plan", path("it's.farm"), "--tasks"});
    const Outcome joins = farm({"plan", path("it's.farm"), "--joins"});
    EXPECT_EQ(tasks.out + joins.out, plan.out);
    EXPECT_EQ(std::ranges::count(joins.out, '\n'), 1);
    setenv("PATH",
           (std::filesystem::path(RUVEX_COMMAND).parent_path().string() + ":" + searched).c_str(),
           1);
    write("plan.sh", plan.out);
    EXPECT_EQ(std::system(("sh -e '" + path("plan.sh") + "' 2>'" + path("said") + "'").c_str()), 0)
        << text("said");
    expectResultsOfOneMachine(5);
}

TEST_F(FarmSubmit, WithoutASchedulerKeepsTheJob) {
    makePictures(2);
    setenv("PATH", "/nonexistent", 1);
    const Outcome outcome = submit();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "Slurm is not installed here: 'ruvex farm plan")) << outcome.err;
    EXPECT_EQ(farm({"plan", path("out.farm")}).status, 0);
}

TEST_F(FarmSubmit, TellsWhatTheSchedulerRefuses) {
    makePictures(2);
    write("refuse", "");
    const Outcome outcome = submit();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "ruvex: sbatch failed: no.")) << outcome.err;
    std::filesystem::remove(folder.file("refuse"));
    EXPECT_EQ(farm({"resume", path("out.farm")}).status, 0);
}

}  // namespace
}  // namespace ruvex::farm
