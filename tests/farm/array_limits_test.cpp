#include "farm/array_limits.h"

#include <gtest/gtest.h>

#include "farm/farm_error.h"
#include "tests/farm/sample_job.h"

namespace ruvex::farm {
namespace {

std::string complaint(const FarmJob& job, std::int64_t most) {
    try {
        checkLimits(job, {.queueLength = most});
        return "";
    } catch (const FarmError& error) {
        return error.what();
    }
}

TEST(ArrayLimits, AreReadFromTheConfiguration) {
    const ArrayLimits limits = parseLimits(
        "Configuration data as of 2026-01-31T10:00:00\n"
        "MaxArraySize            = 4001\n"
        "MaxJobCount             = 20000\n"
        "MaxJobId                = 67043328\n"
        "SchedulerParameters     = batch_sched_delay=0\n");
    EXPECT_EQ(limits.arrayLength, 4001);
    EXPECT_EQ(limits.queueLength, 20000);
}

TEST(ArrayLimits, AreTheUsualOnesWhereNothingIsSaid) {
    EXPECT_EQ(parseLimits(""), ArrayLimits());
    EXPECT_EQ(parseLimits("MaxArraySizes = 7\nMaxArraySize\nMaxArraySize = many\n"), ArrayLimits());
    EXPECT_EQ(ArrayLimits().arrayLength, 1000);
}

TEST(ArrayLimits, AreLowerWhereTheSchedulersParametersSaySo) {
    const std::string parameters =
        "SchedulerParameters     = bf_interval=30,max_array_tasks=50,defer\n";
    EXPECT_EQ(parseLimits(parameters + "MaxArraySize = 1001\n").arrayLength, 50);
    EXPECT_EQ(parseLimits("MaxArraySize = 20\n" + parameters).arrayLength, 20);
}

TEST(ArrayLimits, OfASchedulerWithoutArraysAreAnError) {
    EXPECT_THROW(parseLimits("MaxArraySize            = 0\n"), FarmError);
}

TEST(ArrayLimits, NameTheLeastChunkThatFits) {
    FarmJob job = sampleJob();  // Clips of 25 and 10 frames.
    job.chunkFrames = 1;
    job.clips[1].firstChunk = 25;
    EXPECT_EQ(complaint(job, 37), "");
    EXPECT_NE(complaint(job, 36).find("The 35 chunks and 2 joins are more than the 36 jobs"),
              std::string::npos);
    // Chunks of both clips and joins: of 2 frames 13+5+2, of 5 frames 5+2+2, of 10 frames 3+1+2, of
    // 13 frames 2+1+2.
    EXPECT_NE(complaint(job, 20).find("use --chunk 2 or more"), std::string::npos);
    EXPECT_NE(complaint(job, 9).find("use --chunk 5 or more"), std::string::npos);
    EXPECT_NE(complaint(job, 6).find("use --chunk 10 or more"), std::string::npos);
    EXPECT_NE(complaint(job, 5).find("use --chunk 13 or more"), std::string::npos);
    EXPECT_NE(complaint(job, 4).find("use --chunk 25 or more"), std::string::npos);
    EXPECT_NE(complaint(job, 3).find("submit fewer clips"), std::string::npos);
    job.chunkFrames = 13;
    EXPECT_EQ(complaint(job, 5), "");
}

}  // namespace
}  // namespace ruvex::farm
