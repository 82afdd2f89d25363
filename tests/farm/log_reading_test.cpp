#include "farm/log_reading.h"

#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace ruvex::farm {
namespace {

LogFailure failureOf(const std::string& text) {
    const files::TempFolder folder;
    std::ofstream(folder.file("log.txt")) << text;
    return failureIn(folder.file("log.txt"));
}

TEST(LogReading, FindsTheFirstErrorOfTheLastAttempt) {
    const LogFailure failure = failureOf(
        "ruvex: chunk 3 (frames 0-9 of a.mov) begins on n0\n"
        "ruvex: an old failure.\n"
        "ruvex: chunk 3 (frames 0-9 of a.mov) begins on n1\n"
        "ruvex: warning: a warning.\n"
        "ruvex: 5 of 10 frames, 2.0 a second, 3 s left\n"
        "ruvex: 1 of 10 frames\n"
        "ruvex: Cannot write x: the disk is full.\n"
        "slurmstepd: error: something later\n");
    EXPECT_EQ(failure.host, "n1");
    EXPECT_EQ(failure.sentence, "Cannot write x: the disk is full.");
    EXPECT_TRUE(failure.exists);
}

TEST(LogReading, TellsInPlainWordsHowTheSchedulerEndedATask) {
    const std::string limit = "it reached its limit on time";
    const std::string cancelled = "it was cancelled";
    const std::string stopped = "it was asked to end before it was done";
    const std::string bare =
        "slurmstepd-n0: error: *** JOB 9 ON n0 CANCELLED AT 2026-01-31T10:00:00 ***\n";
    const std::string timed =
        "slurmstepd-n0: error: *** JOB 9 ON n0 CANCELLED AT 2026-01-31T10:00:30 DUE TO TIME LIMIT "
        "***\n";
    const std::string asked =
        "ruvex: chunk 3 (frames 0-9 of a.mov) begins on n0\n"
        "ruvex: chunk 3 (frames 0-9 of a.mov) was stopped before its end.\n";
    EXPECT_TRUE(failureOf(timed).sentence.starts_with(limit));
    EXPECT_FALSE(failureOf(timed).vague);
    EXPECT_TRUE(failureOf(bare).sentence.starts_with(cancelled));
    EXPECT_TRUE(failureOf(bare).vague);
    EXPECT_TRUE(failureOf(asked).sentence.starts_with(stopped));
    EXPECT_TRUE(failureOf(asked).vague);
    // Why it ended tells more than that it ended, and an error more than both.
    EXPECT_TRUE(failureOf(asked + bare + timed).sentence.starts_with(limit));
    EXPECT_EQ(failureOf(asked + timed + "ruvex: It does not work.\n").sentence,
              "It does not work.");
    EXPECT_TRUE(failureOf("slurmstepd-n0: error: Detected 1 oom-kill event(s) in StepId=9.batch.\n")
                    .sentence.starts_with("it used more memory"));
    EXPECT_TRUE(failureOf("slurmstepd: error: *** JOB 9 ON n0 CANCELLED AT x DUE TO NODE FAILURE, "
                          "SEE SLURMCTLD LOG FOR DETAILS ***\n")
                    .sentence.starts_with("its machine failed"));
}

TEST(LogReading, KnowsTheWordsOfSchedulerAndShell) {
    EXPECT_EQ(failureOf("slurmstepd-n0: error: execve(): no such file\n").sentence,
              "slurmstepd-n0: error: execve(): no such file");
    EXPECT_EQ(failureOf("task.sh: 4: exec: /x/ruvex: not found\n").sentence,
              "task.sh: 4: exec: /x/ruvex: not found");
}

TEST(LogReading, TakesNoSuccessForAnError) {
    for (const char* line :
         {"ruvex: chunk 3 (frames 0-9 of error.mov) is done.",
          "ruvex: chunk 3 (frames 0-9 of a.mov) was done before.",
          "ruvex: the join of error.mov begins on n1", "ruvex: 5 of 10 frames, 2.0 a second",
          "ruvex: 5 of 10 frames", "ruvex: 7 frames, 1.0 a second",
          "ruvex: warning: an error in the sound was left out."}) {
        EXPECT_EQ(failureOf(std::string(line) + "\n").sentence, "") << line;
    }
    EXPECT_EQ(failureOf("ruvex: The clip has 10 frames, not 20.\n").sentence,
              "The clip has 10 frames, not 20.");
    EXPECT_EQ(failureOf("ruvex: Render needs 10 frames\n").sentence, "Render needs 10 frames");
}

TEST(LogReading, OfAnAttemptWithoutWordsFindsNone) {
    const LogFailure failure = failureOf("ruvex: chunk 3 begins on n0\n");
    EXPECT_TRUE(failure.exists);
    EXPECT_EQ(failure.host, "n0");
    EXPECT_EQ(failure.sentence, "");
    EXPECT_FALSE(failureIn("/no/such/file").exists);
}

TEST(LogReading, PrintsNothingThatATerminalTakesForItself) {
    EXPECT_EQ(failureOf("ruvex: \x1B[2J error\n").sentence, "\\x1B[2J error");
    EXPECT_LE(failureOf("error " + std::string(5000, 'x')).sentence.size(), 303u);
}

}  // namespace
}  // namespace ruvex::farm
