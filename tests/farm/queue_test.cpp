#include <gtest/gtest.h>

#include "farm/slurm.h"
#include "tests/farm/sample_job.h"

namespace ruvex::farm {
namespace {

TEST(Queue, IsReadLineByLine) {
    const Queue all = parseQueue(sampleJob(),
                                 "ruvex-0123456789abcdef-task-1000|12|7|RUNNING|n0|None\n"
                                 "ruvex-0123456789abcdef-task-0|12|3|PENDING||a | b\n"
                                 "ruvex-0123456789abcdef-join-0|13|1|COMPLETING|n1|None\n"
                                 "ruvex-0000000000000000-task-0|14|1|RUNNING|n0|None\n"
                                 "other|15|N/A|RUNNING|n0|None\n"
                                 "ruvex-0123456789abcdef-task-0|9|4|NODE_FAIL|n1|None\n"
                                 "\nbroken\n"
                                 "ruvex-0123456789abcdef-task-0|16|N/A|PENDING||None\n");
    const auto& queue = all.elements;
    ASSERT_EQ(queue.size(), 3u);
    EXPECT_EQ(queue[0].work, Work::Task);
    EXPECT_EQ(queue[0].number, 1007);
    EXPECT_EQ(queue[0].array, 12);
    EXPECT_TRUE(queue[0].running);
    EXPECT_EQ(queue[1].number, 3);
    EXPECT_FALSE(queue[1].running);
    EXPECT_EQ(queue[1].reason, "a | b");
    EXPECT_EQ(queue[2].work, Work::Join);
    EXPECT_TRUE(queue[2].running);
    EXPECT_EQ(queue[2].node, "n1");
    ASSERT_EQ(all.ended.size(), 1u);
    EXPECT_EQ(all.ended[0].number, 4);
    EXPECT_EQ(all.ended[0].state, "NODE_FAIL");
    EXPECT_FALSE(all.ended[0].running);
}

}  // namespace
}  // namespace ruvex::farm
