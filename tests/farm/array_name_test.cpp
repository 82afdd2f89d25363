#include "farm/array_name.h"

#include <gtest/gtest.h>

#include "tests/farm/sample_job.h"

namespace ruvex::farm {
namespace {

TEST(ArrayName, IsReadBack) {
    const FarmJob job = sampleJob();
    for (const Work work : {Work::Task, Work::Join}) {
        for (const std::int64_t first : {0, 1000, 25000}) {
            const ArrayName name{work, first};
            EXPECT_EQ(arrayNamed(toText(name, job), job), name);
        }
    }
}

TEST(ArrayName, OfAnotherJobIsNone) {
    const FarmJob job = sampleJob();
    FarmJob other = job;
    other.id = "0000000000000000";
    EXPECT_EQ(arrayNamed(toText({Work::Task, 0}, other), job), std::nullopt);
    for (const char* text : {"", "ruvex", "ruvex-0123456789abcdef-task-",
                             "ruvex-0123456789abcdef-task-1x", "ruvex-0123456789abcdef-move-1"}) {
        EXPECT_EQ(arrayNamed(text, job), std::nullopt) << text;
    }
}

TEST(ArrayName, AllOfAJobAreKnown) {
    FarmJob job = sampleJob();
    EXPECT_EQ(allArrayNames(job), "ruvex-0123456789abcdef-task-0,ruvex-0123456789abcdef-join-0");
    job.clips[1].frames.last = 19999;
    EXPECT_EQ(chunksOf(job), 2003);
    EXPECT_EQ(allArrayNames(job),
              "ruvex-0123456789abcdef-task-0,ruvex-0123456789abcdef-task-1000,"
              "ruvex-0123456789abcdef-task-2000,ruvex-0123456789abcdef-join-0");
    job.arrayLength = 2003;
    EXPECT_EQ(allArrayNames(job), "ruvex-0123456789abcdef-task-0,ruvex-0123456789abcdef-join-0");
    EXPECT_EQ(arrayStart(job, 2002), 0);
    EXPECT_EQ(arrayStart(job, 2003), 2003);
}

}  // namespace
}  // namespace ruvex::farm
