#include "farm/process.h"

#include <gtest/gtest.h>

namespace ruvex::farm {
namespace {

TEST(Process, GivesStatusAndBothStreams) {
    const auto result = runProgram({"sh", "-c", "echo out; echo err >&2; exit 7"});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, 7);
    EXPECT_EQ(result->out, "out\n");
    EXPECT_EQ(result->err, "err\n");
}

TEST(Process, ReadsMoreThanAPipeHolds) {
    const auto result =
        runProgram({"sh", "-c", "head -c 300000 /dev/zero; head -c 200000 /dev/zero >&2"});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->out.size(), 300000u);
    EXPECT_EQ(result->err.size(), 200000u);
}

TEST(Process, WithoutAProgramIsNone) {
    EXPECT_FALSE(runProgram({"no-such-program-anywhere"}));
    EXPECT_EQ(runProgram({"sh", "-c", "kill -KILL $$"})->status, -1);
}

TEST(Process, IsNotEndedByAKeyThatEndsTheCommand) {
    // Ctrl-C is sent to a group of processes.
    const auto result = runProgram({"sh", "-c", "echo $$; cut -d' ' -f5 /proc/self/stat"});
    ASSERT_TRUE(result);
    const auto end = result->out.find('\n');
    EXPECT_EQ(result->out, result->out.substr(0, end + 1) + result->out.substr(0, end + 1));
}

}  // namespace
}  // namespace ruvex::farm
