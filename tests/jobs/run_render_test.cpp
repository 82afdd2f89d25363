#include "jobs/run_render.h"

#include <fstream>
#include <gtest/gtest.h>
#include <thread>

#include "files/whole_file.h"
#include "jobs/frames_to_make.h"
#include "media/media_error.h"
#include "tests/jobs/job_clip.h"

namespace ruvex::jobs {
namespace {

using media::Depth;

struct Recorder final : RenderEvents {
    void begun(const FramesToMake& frames) override { count = frames.count(); }
    void frameWritten() override {
        if (++written == stopAfter) source.request_stop();
    }
    void finished() override { ended = true; }

    std::optional<std::int64_t> count;
    std::size_t written = 0;
    std::size_t stopAfter = 0;
    std::stop_source source;
    bool ended = false;
};

TEST(RunRender, TellsOfEachFrameInOrder) {
    const JobClip clip({20, 12}, Depth::Bits8, 5);
    Recorder events;
    EXPECT_EQ(runRender(clip.plan(clip.job()), events), RenderEnd::Finished);
    EXPECT_EQ(events.count, 5);
    EXPECT_EQ(events.written, 5u);
    EXPECT_TRUE(events.ended);
    EXPECT_EQ(clip.written().size(), 5u);
}

TEST(RunRender, ThePictureDoesNotDependOnTheFramesAtOnce) {
    const JobClip clip({60, 45}, Depth::Bits8, 9);
    RenderJob job = clip.job();
    ASSERT_EQ(runQuietly(clip.plan(job)), RenderEnd::Finished);
    const Frames one = clip.written();
    for (const int framesAtOnce : {2, 3, 8}) {
        job.framesAtOnce = framesAtOnce;
        job.output = clip.path("many");
        ASSERT_EQ(runQuietly(clip.plan(job)), RenderEnd::Finished);
        EXPECT_TRUE(clip.written("many") == one) << framesAtOnce;
    }
}

TEST(RunRender, APlanNeedsNoJob) {
    const JobClip clip({20, 12}, Depth::Bits8, 2);
    auto job = std::make_unique<RenderJob>(clip.job());
    const RenderPlan plan = clip.plan(*job);
    job.reset();
    EXPECT_EQ(runQuietly(plan), RenderEnd::Finished);
    EXPECT_EQ(clip.written().size(), 2u);
}

TEST(RunRender, AStopKeepsCompleteFilesAndNothingElse) {
    const JobClip clip({60, 45}, Depth::Bits8, 40);
    Recorder events;
    events.stopAfter = 3;
    EXPECT_EQ(runRender(clip.plan(clip.job()), events, events.source.get_token()),
              RenderEnd::Stopped);
    EXPECT_FALSE(events.ended);
    const Frames some = clip.written();
    EXPECT_GE(some.size(), 3u);
    EXPECT_LT(some.size(), 40u);
    EXPECT_EQ(clip.folder.names().size(), 40u + some.size());
    ASSERT_EQ(runQuietly(clip.plan(clip.job("all"))), RenderEnd::Finished);
    const Frames all = clip.written("all");
    for (const auto& [number, frame] : some) EXPECT_TRUE(frame == all.at(number)) << number;
}

TEST(RunRender, AStopAfterTheLastFrameChangesNothing) {
    const JobClip clip({20, 12}, Depth::Bits8, 4);
    Recorder events;
    events.stopAfter = 4;
    EXPECT_EQ(runRender(clip.plan(clip.job()), events, events.source.get_token()),
              RenderEnd::Finished);
    EXPECT_TRUE(events.ended);
    EXPECT_EQ(clip.written().size(), 4u);
}

TEST(RunRender, AStopThatCameBeforeMakesNothing) {
    const JobClip clip({20, 12}, Depth::Bits8, 3);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(runQuietly(clip.plan(clip.job()), stop.get_token()), RenderEnd::Stopped);
    EXPECT_TRUE(clip.written().empty());
}

TEST(RunRender, AFrameThatCannotBeReadIsNamed) {
    const JobClip clip({20, 12}, Depth::Bits8, 6);
    const RenderPlan plan = clip.plan(clip.job());
    std::filesystem::resize_file(files::NumberedPath(clip.path("in")).file(4), 7);
    try {
        runQuietly(plan);
        FAIL();
    } catch (const FrameFailure& failure) {
        EXPECT_EQ(failure.frame(), 4);
        EXPECT_STRNE(failure.what(), "");
    }
    EXPECT_EQ(clip.written().size(), 4u);
}

TEST(RunRender, ResumeMakesWhatIsMissingBrokenOrOfAnotherSize) {
    const JobClip clip({20, 12}, Depth::Bits8, 6);
    RenderJob job = clip.job();
    ASSERT_EQ(runQuietly(clip.plan(job)), RenderEnd::Finished);
    const Frames whole = clip.written();
    const files::NumberedPath name(job.output);
    std::filesystem::remove(name.file(1));
    std::filesystem::resize_file(name.file(3), 5);
    std::ofstream(name.file(5)) << std::string(2000, 'x');
    job.resume = true;
    const RenderPlan plan = clip.plan(job);
    EXPECT_EQ(framesToMake(plan).made, (std::set<std::int64_t>{0, 2, 4}));
    Recorder events;
    ASSERT_EQ(runRender(plan, events), RenderEnd::Finished);
    EXPECT_EQ(events.written, 3u);
    EXPECT_TRUE(clip.written() == whole);
}

/// Two renders that have nothing in common but the process.
struct TwoRenders : testing::Test {
    TwoRenders() : small({48, 30}, Depth::Bits8, 12), large({90, 70}, Depth::S214, 8) {
        smallJob = small.job();
        smallJob.rate = media::Rational{25, 1};
        smallJob.workers = 1;
        largeJob = large.job();
        largeJob.rate = media::Rational{60, 1};
        largeJob.workers = 5;
        largeJob.projectSize = media::FrameSize{360, 140};
        largeJob.pixelAspect = 2.0;
        largeJob.parameters = looks::presetChanges(*findPreset("Cable Out"));
    }

    JobClip small;
    JobClip large;
    RenderJob smallJob;
    RenderJob largeJob;
};

TEST_F(TwoRenders, AtOnceGiveTheBytesThatEachGivesAlone) {
    ASSERT_EQ(runQuietly(small.plan(smallJob)), RenderEnd::Finished);
    ASSERT_EQ(runQuietly(large.plan(largeJob)), RenderEnd::Finished);
    const Frames smallAlone = small.written();
    const Frames largeAlone = large.written();
    smallJob.output = small.path("again");
    largeJob.output = large.path("again");
    largeJob.framesAtOnce = 2;
    for (int round = 0; round < 3; ++round) {
        std::jthread other([&] { runQuietly(small.plan(smallJob)); });
        runQuietly(large.plan(largeJob));
        other.join();
        EXPECT_TRUE(small.written("again") == smallAlone) << round;
        EXPECT_TRUE(large.written("again") == largeAlone) << round;
    }
}

TEST_F(TwoRenders, CancellingOneLeavesTheOtherRunning) {
    ASSERT_EQ(runQuietly(large.plan(largeJob)), RenderEnd::Finished);
    const Frames alone = large.written();
    largeJob.output = large.path("again");
    Recorder cancelled;
    cancelled.stopAfter = 2;
    RenderEnd end = RenderEnd::Finished;
    std::jthread other(
        [&] { end = runRender(small.plan(smallJob), cancelled, cancelled.source.get_token()); });
    EXPECT_EQ(runQuietly(large.plan(largeJob)), RenderEnd::Finished);
    other.join();
    EXPECT_EQ(end, RenderEnd::Stopped);
    EXPECT_TRUE(large.written("again") == alone);
}

}  // namespace
}  // namespace ruvex::jobs
