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

TEST(LogReading, KnowsTheWordsOfSchedulerAndShell) {
    EXPECT_EQ(
        failureOf("slurmstepd: error: *** JOB 12 ON n0 CANCELLED DUE TO TIME LIMIT ***\n").sentence,
        "slurmstepd: error: *** JOB 12 ON n0 CANCELLED DUE TO TIME LIMIT ***");
    EXPECT_EQ(failureOf("task.sh: 4: exec: /x/ruvex: not found\n").sentence,
              "task.sh: 4: exec: /x/ruvex: not found");
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
