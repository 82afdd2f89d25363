// Running out of memory at each allocation of a frame, from the clip's picture to the result, the
// effect's module included: the render fails and names the frame, or the result is right. The next
// frame is right in any case.

#include <algorithm>
#include <gtest/gtest.h>

#include "jobs/frame_renderer.h"
#include "jobs/look_sheet.h"
#include "jobs/pipeline.h"
#include "media/stills/still_file.h"
#include "parameters/parameter_id.h"
#include "runtime/error.h"
#include "tests/jobs/job_clip.h"
#include "tests/support/watched_new.h"

namespace ruvex::jobs {
namespace {

using media::Depth;
using media::Frame;
using test::FailingElsewhere;
using test::FailingNew;
using Id = ParameterId;

constexpr media::FrameSize kSize{40, 30};
constexpr int kFrames = 3;
constexpr int kFrame = 1;
const std::string kNotFinished = "frame 1 was not finished: out of memory";

looks::ParameterChange value(Id id, double number) {
    return looks::Setting{id, number};
}

struct FrameMemory : testing::TestWithParam<Depth> {
    FrameMemory() : clip(kSize, GetParam(), kFrames) {}

    /// A job with every step of a frame: lower resolution, lens, blur, television, scan lines.
    RenderJob wholeChain() const {
        RenderJob job = clip.job();
        for (const auto& [id, number] :
             {std::pair(Id::Resolution, 60.0), std::pair(Id::FishEye, 1.0),
              std::pair(Id::FishEyePower, 40.0), std::pair(Id::Blur, 5.0),
              std::pair(Id::ScanlineWidth, 4.0)}) {
            job.parameters.push_back(value(id, number));
        }
        return job;
    }

    std::shared_ptr<SharedClip> open(const RenderPlan& plan) const {
        return std::make_shared<SharedClip>(media::openReader(plan.input, plan.reading),
                                            SharedClip::Open());
    }

    /// Renders one frame over and over, while `Memory` denies the next allocation each time.
    template <class Memory>
    void denyEach(const RenderJob& job);

    /// The error's sentence; empty for a frame that was rendered.
    template <class Memory>
    std::string renderWithout(std::size_t number, FrameRenderer& renderer, Frame& result,
                              bool& denied);

    JobClip clip;
};

template <class Memory>
std::string FrameMemory::renderWithout(std::size_t number, FrameRenderer& renderer, Frame& result,
                                       bool& denied) {
    Frame source = clip.picture(kFrame);
    const Memory memory(number);
    std::string sentence;
    try {
        EXPECT_TRUE(renderer.render(kFrame, source, result)) << "nobody asked for a stop";
    } catch (const runtime::Error& error) {
        sentence = error.what();
    }
    denied = memory.allocations() >= number;
    return sentence;
}

template <class Memory>
void FrameMemory::denyEach(const RenderJob& job) {
    const RenderPlan plan = clip.plan(job);
    const auto shared = open(plan);
    FrameRenderer renderer(plan, shared);
    Frame wanted;
    Frame source = clip.picture(kFrame);
    ASSERT_TRUE(renderer.render(kFrame, source, wanted));
    int failures = 0;
    bool denied = true;
    for (std::size_t number = 1; denied; ++number) {
        Frame result;
        const std::string error = renderWithout<Memory>(number, renderer, result, denied);
        if (error.empty()) {
            ASSERT_TRUE(result == wanted) << "wrong without allocation " << number;
        } else {
            EXPECT_EQ(error.substr(0, kNotFinished.size()), kNotFinished);
            EXPECT_TRUE(denied);
            ++failures;
        }
        Frame next;
        source = clip.picture(kFrame);
        ASSERT_TRUE(renderer.render(kFrame, source, next));
        ASSERT_TRUE(next == wanted) << "wrong after allocation " << number << " was denied";
    }
    EXPECT_GT(failures, 0) << "the module's allocations are counted";
}

TEST_P(FrameMemory, OfTheWholeChain) {
    RenderJob job = wholeChain();
    job.workers = 1;
    denyEach<FailingNew>(job);
}

TEST_P(FrameMemory, OfTheOtherWorker) {
    denyEach<FailingElsewhere>(wholeChain());
}

TEST_P(FrameMemory, WhileWorkersAreStarted) {
    denyEach<FailingNew>(clip.job());
}

TEST_P(FrameMemory, OfFieldsWithAMaskInAComparison) {
    Frame still(kSize, Depth::Bits8);
    std::ranges::fill(still.bytes(), std::byte{200});
    media::writeStill(clip.folder.file("mask.png"), still);
    RenderJob job = clip.job();
    job.workers = 1;
    job.fields = true;
    job.fieldOrder = media::FieldOrder::TopFirst;
    job.mask = clip.folder.file("mask.png");
    job.comparison = Comparison{};
    denyEach<FailingNew>(job);
}

TEST_P(FrameMemory, OfAnInputAtAnotherTime) {
    RenderJob job = clip.job();
    job.workers = 1;
    job.parameters.push_back(value(Id::PlaySpeed, 0.0));
    job.parameters.push_back(value(Id::WhiteDot, 30.0));
    denyEach<FailingNew>(job);
}

/// Runs `run`, which gives true for a right result, over and over while `Memory` denies one
/// allocation: each of the first ones, then one of every few. A result is right, or there is an
/// error. `prepare` makes what a run takes, with all memory.
template <class Memory, class Prepare, class Run>
int countFailures(Prepare prepare, Run run) {
    constexpr std::size_t kEach = 20;
    int failures = 0;
    bool denied = true;
    for (std::size_t number = 1; denied; number += 1 + number / kEach) {
        auto prepared = prepare();
        const Memory memory(number);
        try {
            EXPECT_TRUE(run(prepared)) << "wrong without allocation " << number;
        } catch (const std::exception&) {
            ++failures;
        }
        denied = memory.allocations() >= number;
    }
    return failures;
}

TEST_P(FrameMemory, OfAPipeline) {
    RenderJob job = wholeChain();
    job.framesAtOnce = 2;
    const RenderPlan plan = clip.plan(job);
    const auto run = [&](const std::shared_ptr<SharedClip>& shared) {
        Frames frames;
        Pipeline pipeline(plan, shared, {});
        const FramesToMake all = {.range = {0, kFrames - 1}};
        const bool ended = pipeline.run(
            all, [&](std::int64_t k, const Frame& result) { frames.emplace(k, result); });
        EXPECT_TRUE(ended) << "nobody asked for a stop";
        return frames;
    };
    const auto shared = open(plan);
    const Frames wanted = run(shared);
    const auto runsRight = [&](const auto& prepared) { return run(prepared) == wanted; };
    const auto sameClip = [&] { return shared; };
    EXPECT_GT(countFailures<FailingNew>(sameClip, runsRight), 0);
    EXPECT_GT(countFailures<FailingElsewhere>(sameClip, runsRight), 0);
}

TEST_P(FrameMemory, OfAPipelineNamesTheFrame) {
    const RenderPlan plan = clip.plan(clip.job());
    int named = 0;
    const auto reader = [&] { return media::openReader(plan.input, plan.reading); };
    const auto render = [&](auto& opened) {
        RenderEvents nobody;
        try {
            return runRender(plan, std::move(opened), nobody, {}) == RenderEnd::Finished;
        } catch (const FrameFailure& failure) {
            const std::string sentence =
                "frame " + std::to_string(failure.frame()) + " was not finished: out of memory";
            EXPECT_EQ(std::string(failure.what()).substr(0, sentence.size()), sentence);
            ++named;
            throw;
        }
    };
    countFailures<FailingElsewhere>(reader, render);
    EXPECT_GT(named, 0);
}

TEST_P(FrameMemory, OfASheetOfLooks) {
    const RenderPlan plan = clip.plan(clip.job());
    const auto reader = [&] { return media::openReader(plan.input, plan.reading); };
    std::vector<SheetLook> cells;
    for (int preset = 0; preset < kPresetCount; ++preset) {
        cells.push_back({std::string(presetNames()[static_cast<std::size_t>(preset)]),
                         looks::presetChanges(preset)});
    }
    const auto wanted = lookSheet(plan, reader(), cells, true, [] {});
    ASSERT_TRUE(wanted);
    const auto drawsTheSame = [&](auto& opened) {
        const auto sheet = lookSheet(plan, std::move(opened), cells, true, [] {});
        return sheet && *sheet == *wanted;
    };
    EXPECT_GT(countFailures<FailingNew>(reader, drawsTheSame), 0);
    EXPECT_GT(countFailures<FailingElsewhere>(reader, drawsTheSame), 0);
}

INSTANTIATE_TEST_SUITE_P(Depths, FrameMemory, testing::Values(Depth::Bits8, Depth::S214));

}  // namespace
}  // namespace ruvex::jobs
