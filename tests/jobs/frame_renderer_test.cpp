#include "jobs/frame_renderer.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "media/media_error.h"
#include "media/stills/still_file.h"
#include "parameters/parameter_table.h"
#include "runtime/images.h"
#include "tests/jobs/job_clip.h"

namespace ruvex::jobs {
namespace {

using media::Depth;
using media::Field;
using media::Frame;

constexpr media::FrameSize kSize{40, 30};
constexpr int kFrames = 4;

struct Rendering : testing::TestWithParam<Depth> {
    Rendering() : clip(kSize, GetParam(), kFrames) {}

    std::shared_ptr<SharedClip> open(const RenderPlan& plan) const {
        return std::make_shared<SharedClip>(media::openReader(plan.input, plan.reading),
                                            SharedClip::Open());
    }
    /// The frames of a job in an order of one's own.
    Frames render(const RenderJob& job, std::initializer_list<int> order) const {
        const RenderPlan plan = clip.plan(job);
        FrameRenderer renderer(plan, open(plan));
        Frames frames;
        for (const int k : order) {
            Frame source = clip.picture(k);
            EXPECT_TRUE(renderer.render(k, source, frames[k]));
        }
        return frames;
    }
    /// A still of one grey, as a mask.
    std::filesystem::path mask(int grey) const {
        Frame still(kSize, Depth::Bits8);
        for (std::size_t i = 0; i < still.bytes().size(); ++i) {
            still.bytes()[i] = static_cast<std::byte>(i % 4 == 3 ? 255 : grey);
        }
        media::writeStill(clip.folder.file("mask.png"), still);
        return clip.folder.file("mask.png");
    }

    JobClip clip;
};

TEST_P(Rendering, AFrameIsTheSameInAnyOrderAndInTheWholeRender) {
    const RenderJob job = clip.job();
    const Frames forth = render(job, {0, 1, 2, 3});
    EXPECT_TRUE(render(job, {3, 1, 0, 2}) == forth);
    ASSERT_EQ(runQuietly(clip.plan(job)), RenderEnd::Finished);
    EXPECT_TRUE(clip.written() == forth);
    EXPECT_FALSE(forth.at(0) == clip.picture(0));
}

TEST_P(Rendering, ACloneRendersTheSame) {
    const RenderPlan plan = clip.plan(clip.job());
    FrameRenderer renderer(plan, open(plan));
    FrameRenderer clone = renderer.clone();
    Frame one, other;
    Frame source = clip.picture(2), sameSource = source;
    ASSERT_TRUE(renderer.render(2, source, one));
    ASSERT_TRUE(clone.render(2, sameSource, other));
    EXPECT_TRUE(one == other);
}

TEST_P(Rendering, AMaskLetsThroughNothingWhereItIsBlackAndAllWhereItIsWhite) {
    RenderJob job = clip.job();
    const Frames whole = render(job, {1});
    job.mask = mask(0);
    EXPECT_TRUE(render(job, {1}).at(1) == clip.picture(1));
    job.mask = mask(255);
    // Paint keeps the input's alpha; the colours are those of the effect.
    const Frame painted = render(job, {1}).at(1);
    EXPECT_FALSE(painted == clip.picture(1));
    job.mask = mask(128);
    const Frame half = render(job, {1}).at(1);
    EXPECT_FALSE(half == painted);
    EXPECT_FALSE(half == clip.picture(1));
}

TEST_P(Rendering, AMaskOfAnotherSizeIsRefused) {
    RenderJob job = clip.job();
    media::writeStill(clip.folder.file("mask.png"), Frame({5, 5}, Depth::Bits8));
    job.mask = clip.folder.file("mask.png");
    const RenderPlan plan = clip.plan(job);
    try {
        const FrameRenderer renderer(plan, open(plan));
        FAIL();
    } catch (const JobError& error) {
        EXPECT_EQ(error.field(), JobField::Mask);
    }
}

TEST_P(Rendering, EachFieldIsAPictureAtItsOwnTime) {
    RenderJob job = clip.job();
    job.fields = true;
    job.fieldOrder = media::FieldOrder::BottomFirst;
    const Frame woven = render(job, {1}).at(1);
    const RenderPlan plan = clip.plan(job);
    const auto input = std::make_shared<ClipInput>(open(plan), plan.project);
    PictureRenderer pictures(plan, input, {});
    const Frame whole = clip.picture(1);
    for (const Field field : {Field::Bottom, Field::Top}) {
        Frame source, wanted, found;
        // Between two frames the effect asks for the frame before.
        const ClipInput::FrameAtHand atHand(*input, 1, whole, field);
        media::takeField(whole, field, source);
        media::makeRoom(wanted, source.size(), GetParam());
        const double time = (field == Field::Bottom ? 1.0 : 1.5) / 25.0;
        ASSERT_TRUE(pictures.render({1, time, source, {}, {}}, wanted));
        media::takeField(woven, field, found);
        EXPECT_TRUE(found == wanted);
    }
}

TEST_P(Rendering, AComparisonShowsBoth) {
    RenderJob job = clip.job();
    const Frame after = render(job, {2}).at(2);
    job.comparison = Comparison{};
    const Frame both = render(job, {2}).at(2);
    Frame wanted({2 * kSize.width, kSize.height}, GetParam());
    compareFrames(*job.comparison, clip.picture(2), after, wanted);
    EXPECT_TRUE(both == wanted);
}

/// A value of the parameter, mostly between the ends of its range.
looks::ParameterChange anyValue(const ParameterRow& row, std::mt19937& random) {
    constexpr Range kAny{-100, 100};
    constexpr double kBeyond = 0.1;
    const Range range = row.enteredRange().value_or(kAny);
    const double margin = kBeyond * (range.high - range.low);
    std::uniform_real_distribution<double> real(range.low - margin, range.high + margin);
    const double value = real(random);
    if (isReal(row.kind)) return looks::Setting{row.id, value};
    if (isCheckBox(row.kind)) return looks::Setting{row.id, static_cast<double>(random() % 2)};
    constexpr double kMostGhosts = 6;
    const double high = row.id == ParameterId::NumGhosts ? kMostGhosts : range.high;
    return looks::Setting{row.id, std::floor(std::clamp(value, range.low, high))};
}

std::vector<looks::ParameterChange> anyLook(std::mt19937& random) {
    std::vector<looks::ParameterChange> changes;
    for (const ParameterRow& row : parameterTable()) {
        if (random() % 4 == 0) changes.push_back(anyValue(row, random));
    }
    return changes;
}

// The effect writes straight into the result, which holds an older frame.
TEST_P(Rendering, AResultDoesNotDependOnWhatWasInItsMemory) {
    std::mt19937 random(71);
    for (int round = 0; round < 300; ++round) {
        RenderJob job = clip.job();
        job.parameters = anyLook(random);
        job.workers = 1 + static_cast<int>(random() % 5);
        if (random() % 4 == 0) job.region = Region{3, 5, 20, 17};
        if (random() % 4 == 0) job.mask = mask(static_cast<int>(random() % 256));
        job.fields = random() % 4 == 0;
        if (job.fields) job.fieldOrder = media::FieldOrder::TopFirst;
        const RenderPlan plan = clip.plan(job);
        FrameRenderer renderer(plan, open(plan));
        Frame inNew, inOld(kSize, GetParam());
        std::ranges::fill(inOld.bytes(), std::byte{0xA5});
        Frame source = clip.picture(2), sameSource = source;
        ASSERT_TRUE(renderer.render(2, source, inNew));
        ASSERT_TRUE(renderer.render(2, sameSource, inOld));
        ASSERT_TRUE(inNew == inOld) << "round " << round;
    }
}

TEST_P(Rendering, ARequestedStopEndsIt) {
    const RenderPlan plan = clip.plan(clip.job());
    std::stop_source stop;
    FrameRenderer renderer(plan, open(plan), stop.get_token());
    stop.request_stop();
    Frame source = clip.picture(0), result;
    EXPECT_FALSE(renderer.render(0, source, result));
}

INSTANTIATE_TEST_SUITE_P(Depths, Rendering, testing::Values(Depth::Bits8, Depth::S214));

/// What the effect gets when it asks for other frames.
struct Serving : testing::Test {
    Serving() : clip(kSize, Depth::Bits8, kFrames) {}

    ClipInput input(ClipEnds ends) const {
        const RenderPlan plan = clip.plan(clip.job());
        auto shared = std::make_shared<SharedClip>(media::openReader(plan.input, plan.reading),
                                                   SharedClip::Open());
        return {std::move(shared), plan.project, ends};
    }
    static bool holds(const ComPtr<IDSImage>& image, const Frame& frame, const RenderPlan& plan) {
        if (!image) return false;
        const auto given = runtime::copyImage(*image);
        DSFloatPair world{};
        EXPECT_EQ(given->GetWorldSize(&world), S_OK);
        EXPECT_EQ(world, runtime::worldSizeOf(plan.project));
        return std::ranges::equal(std::span(given->bytes(), given->byteCount()), frame.bytes());
    }

    JobClip clip;
};

TEST_F(Serving, TheNearestFrameIsGiven) {
    ClipInput given = input(ClipEnds::Blank);
    const RenderPlan plan = clip.plan(clip.job());
    EXPECT_TRUE(holds(given.imageAt(2.0 / 25.0), clip.picture(2), plan));
    EXPECT_TRUE(holds(given.imageAt(2.4 / 25.0), clip.picture(2), plan));
    EXPECT_TRUE(holds(given.imageAt(2.6 / 25.0), clip.picture(3), plan));
}

TEST_F(Serving, OutsideTheClipTheEndsDecide) {
    const RenderPlan plan = clip.plan(clip.job());
    ClipInput blank = input(ClipEnds::Blank);
    ClipInput hold = input(ClipEnds::Hold);
    ClipInput loop = input(ClipEnds::Loop);
    EXPECT_FALSE(blank.imageAt(-1.0 / 25.0));
    EXPECT_TRUE(holds(hold.imageAt(-1.0 / 25.0), clip.picture(0), plan));
    EXPECT_TRUE(holds(loop.imageAt(-1.0 / 25.0), clip.picture(3), plan));
    for (ClipInput* any : {&blank, &hold, &loop}) {
        EXPECT_FALSE(any->imageAt(std::numeric_limits<double>::quiet_NaN()));
        EXPECT_FALSE(any->imageAt(1e30));
    }
}

TEST_F(Serving, AFrameThatCannotBeReadIsRethrownOnce) {
    ClipInput given = input(ClipEnds::Hold);
    std::filesystem::resize_file(files::NumberedPath(clip.path("in")).file(1), 3);
    EXPECT_THROW(given.imageAt(1.0 / 25.0), media::MediaError);
    EXPECT_THROW(given.rethrowFailure(), media::MediaError);
    EXPECT_NO_THROW(given.rethrowFailure());
}

}  // namespace
}  // namespace ruvex::jobs
