#include "cli/farm_words.h"

#include <gtest/gtest.h>

namespace ruvex::cli {
namespace {

using farm::FarmStatus;

farm::FarmJob jobOf(std::int64_t chunkFrames, const std::vector<std::int64_t>& clips) {
    farm::FarmJob job;
    job.chunkFrames = chunkFrames;
    for (const std::int64_t frames : clips) {
        farm::FarmClip clip;
        clip.frames = {0, frames - 1};
        clip.firstChunk = chunksOf(job);
        job.clips.push_back(clip);
    }
    return job;
}

FarmStatus runningStatus() {
    FarmStatus status;
    status.frames = 1000;
    status.framesDone = 250;
    status.chunks = 40;
    status.chunksDone = 10;
    status.clips = 1;
    status.queueKnown = true;
    status.running = 2;
    status.waiting = 28;
    status.framesPerSecond = 25.0;
    return status;
}

TEST(FarmWords, CountChunksAndTheirFrames) {
    EXPECT_EQ(chunksText(jobOf(1, {2})), "2 chunks of 1 frame");
    EXPECT_EQ(chunksText(jobOf(250, {50})), "1 chunk of 50 frames");
    EXPECT_EQ(chunksText(jobOf(250, {500})), "2 chunks of 250 frames");
    EXPECT_EQ(chunksText(jobOf(250, {50, 100})), "2 chunks of 100 frames");
}

TEST(FarmWords, TellWhatFollowsTheChunks) {
    FarmStatus status = runningStatus();
    const std::string start =
        "250 of 1000 frames, 10 of 40 chunks; 2 running, 28 waiting; 25.0 frames a second, 30 s "
        "left";
    EXPECT_EQ(statusLine(status), start);
    status.videosToJoin = 1;
    EXPECT_EQ(statusLine(status), start + ", then the join");
    status.videosToJoin = 2;
    EXPECT_EQ(statusLine(status), start + ", then the joins");
}

TEST(FarmWords, TellWhatIsWaitedFor) {
    FarmStatus status = runningStatus();
    status.running = 0;
    status.framesPerSecond = 0.0;
    status.obstacles = {"PartitionTimeLimit", "QOSMaxJobs"};
    EXPECT_EQ(statusLine(status),
              "250 of 1000 frames, 10 of 40 chunks; 0 running, 28 waiting (PartitionTimeLimit, "
              "QOSMaxJobs)");
    status = runningStatus();
    status.running = status.waiting = 0;
    status.joinRuns = true;
    EXPECT_EQ(statusLine(status),
              "250 of 1000 frames, 10 of 40 chunks; 0 running, 0 waiting; joining");
    // Another clip is still rendered.
    status.running = 2;
    EXPECT_EQ(
        statusLine(status),
        "250 of 1000 frames, 10 of 40 chunks; 2 running, 0 waiting; 25.0 frames a second, 30 s "
        "left");
}

TEST(FarmWords, TellThatTheQueueDoesNotAnswer) {
    FarmStatus status = runningStatus();
    status.queueKnown = false;
    EXPECT_EQ(statusLine(status),
              "250 of 1000 frames, 10 of 40 chunks; 25.0 frames a second, 30 s left");
    status.queueFault = "squeue failed.";
    EXPECT_EQ(
        statusLine(status),
        "250 of 1000 frames, 10 of 40 chunks; the queue does not answer; 25.0 frames a second, "
        "30 s left");
}

TEST(FarmWords, TellWhatASubmissionComesTo) {
    EXPECT_EQ(resumeText({}), "all is done: nothing is left to do");
    EXPECT_EQ(resumeText({.complete = 3}), "all is done: nothing is left to do");
    EXPECT_EQ(resumeText({.submitted = 1, .joins = 1}), "1 chunk and 1 join submitted");
    EXPECT_EQ(
        resumeText({.submitted = 3, .joins = 2, .complete = 4, .queued = 1, .joinsRunning = 1}),
        "3 chunks and 2 joins submitted, 4 chunks done before, 1 chunk in the queue, 1 join "
        "running");
    EXPECT_EQ(resumeText({.joins = 1, .complete = 4}), "1 join submitted, 4 chunks done before");
    EXPECT_EQ(resumeText({.complete = 4, .joinsWaiting = 2}),
              "nothing is left to submit: 4 chunks done before, 2 joins waiting");
}

}  // namespace
}  // namespace ruvex::cli
