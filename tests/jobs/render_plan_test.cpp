#include "jobs/render_plan.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>

namespace ruvex::jobs {
namespace {

/// A video of 100 frames, 720x576.
media::ClipInfo clip() {
    media::ClipInfo clip;
    clip.size = {720, 576};
    clip.rate = media::Rational{25, 1};
    clip.last = 99;
    return clip;
}

RenderJob job() {
    RenderJob job;
    job.input = "in.mp4";
    job.output = "out.mkv";
    return job;
}

RenderPlan planOf(const RenderJob& job, const media::ClipInfo& clip) {
    std::vector<Note> notes;
    return planRender(job, clip, notes);
}

/// The field that is wrong with the job after `change`; empty if nothing is.
std::optional<JobField> wrongField(const std::function<void(RenderJob&)>& change,
                                   media::ClipInfo info = clip()) {
    RenderJob changed = job();
    change(changed);
    try {
        planOf(changed, info);
    } catch (const JobError& error) {
        EXPECT_STRNE(error.what(), "");
        return error.field();
    }
    return std::nullopt;
}

TEST(RenderPlan, TakesFromTheClipWhatTheJobLeavesOpen) {
    const RenderPlan plan = planOf(job(), clip());
    EXPECT_EQ(plan.size, (media::FrameSize{720, 576}));
    EXPECT_EQ(plan.frames, (FrameRange{0, 99}));
    EXPECT_EQ(plan.rate, (media::Rational{25, 1}));
    EXPECT_EQ(plan.project.width, 720);
    EXPECT_EQ(plan.project.height, 576);
    EXPECT_EQ(plan.project.frameRate, 25.0);
    EXPECT_EQ(plan.writing.size, plan.size);
    EXPECT_FALSE(plan.workers);
    EXPECT_EQ(plan.fields, media::FieldOrder::Progressive);
}

TEST(RenderPlan, TakesFromTheJobWhatItSays) {
    RenderJob all = job();
    all.depth = media::Depth::S214;
    all.frames = FrameRange{5, 9};
    all.workers = 3;
    all.projectSize = media::FrameSize{100, 50};
    all.pixelAspect = 2.0;
    all.region = Region{1, 2, 3, 4};
    all.ends = ClipEnds::Loop;
    all.framesAtOnce = 4;
    all.comparison = Comparison{};
    all.parameters = {looks::Setting{ParameterId::SnowMax, 5}};
    const RenderPlan plan = planOf(all, clip());
    EXPECT_EQ(plan.depth, media::Depth::S214);
    EXPECT_EQ(plan.frames, (FrameRange{5, 9}));
    EXPECT_EQ(plan.workers, 3);
    EXPECT_EQ(plan.project.width, 100);
    EXPECT_EQ(plan.project.pixelAspect, 2.0);
    EXPECT_EQ(plan.region, (Region{1, 2, 3, 4}));
    EXPECT_EQ(plan.ends, ClipEnds::Loop);
    EXPECT_EQ(plan.framesAtOnce, 4);
    EXPECT_EQ(plan.writing.size, (media::FrameSize{1440, 576}));
    EXPECT_EQ(plan.parameters, all.parameters);
}

TEST(RenderPlan, OfAParameterTheLastChangeCounts) {
    RenderJob twice = job();
    twice.parameters = {looks::Setting{ParameterId::SnowMax, 1},
                        looks::Setting{ParameterId::SnowMax, 2}};
    EXPECT_EQ(planOf(twice, clip()).parameters,
              (std::vector<looks::ParameterChange>{looks::Setting{ParameterId::SnowMax, 2}}));
}

TEST(RenderPlan, TheSoundIsCutToTheFrames) {
    media::ClipInfo info = clip();
    info.start = 1000;
    const RenderPlan whole = planOf(job(), info);
    EXPECT_EQ(whole.writing.copied.from, INT64_MIN);
    EXPECT_EQ(whole.writing.copied.to, INT64_MAX);
    EXPECT_EQ(whole.writing.copied.zero, 1000);
    RenderJob part = job();
    part.frames = FrameRange{25, 49};
    const RenderPlan cut = planOf(part, info);
    EXPECT_EQ(cut.writing.copied.from, 1001000);
    EXPECT_EQ(cut.writing.copied.to, 2001000);
}

TEST(RenderPlan, RefusesWhatTheContainerCannotHold) {
    const auto toMxf = [](RenderJob& j) { j.output = "out.mxf"; };
    EXPECT_EQ(wrongField(toMxf), std::nullopt);
    media::ClipInfo slow = clip();
    slow.rate = media::Rational{15, 1};
    EXPECT_EQ(wrongField(toMxf, slow), JobField::Output);
    media::ClipInfo small = clip();
    small.size = {255, 576};
    EXPECT_EQ(wrongField(toMxf, small), JobField::Output);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.output = "out.mov"; }, small), std::nullopt);
    const auto to422 = [](RenderJob& j) {
        j.output = "out.mov";
        j.codec = "prores-422";
    };
    EXPECT_EQ(wrongField(to422), std::nullopt);
    EXPECT_EQ(wrongField(to422, small), JobField::Output);
}

TEST(RenderPlan, DoubtsAQualityThatLooksLikeARateFactor) {
    RenderJob some = job();
    some.output = "out.mp4";
    some.quality = 18;
    std::vector<Note> notes;
    planRender(some, clip(), notes);
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0].field, JobField::Quality);
    notes.clear();
    some.quality = 64;
    planRender(some, clip(), notes);
    EXPECT_TRUE(notes.empty());
}

TEST(RenderPlan, HandsOnHowTheResultIsStored) {
    RenderJob some = job();
    some.output = "out.%d.exr";
    some.exrPixels = media::ExrPixels::Half;
    some.exrCompression = media::ExrCompression::Zip1;
    some.mute = true;
    const RenderPlan plan = planOf(some, clip());
    EXPECT_EQ(plan.writing.exrPixels, media::ExrPixels::Half);
    EXPECT_EQ(plan.writing.exrCompression, media::ExrCompression::Zip1);
    EXPECT_FALSE(plan.writing.copied.sound);
    EXPECT_TRUE(planOf(job(), clip()).writing.copied.sound);
    RenderJob video = job();
    video.codec = "h264";
    video.encoderSpeed = "slow";
    video.encoderThreads = 3;
    EXPECT_EQ(planOf(video, clip()).writing.encoderSpeed, "slow");
    EXPECT_EQ(planOf(video, clip()).writing.encoderThreads, 3);
}

TEST(RenderPlan, NamesTheFieldThatIsWrong) {
    using enum JobField;
    EXPECT_EQ(wrongField([](RenderJob&) {}), std::nullopt);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.frames = FrameRange{50, 100}; }), Frames);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.frames = FrameRange{5, 4}; }), Frames);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.frames = FrameRange{-1, 4}; }), Frames);
    EXPECT_EQ(wrongField([](RenderJob& j) {
                  j.region = jobs::Region{700, 0, 21, 5};
              }),
              JobField::Region);
    EXPECT_EQ(wrongField([](RenderJob& j) {
                  j.region = jobs::Region{0, 0, 0, 5};
              }),
              JobField::Region);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.output = "out.png"; }), Output);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.output = "out.xyz"; }), Output);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.codec = "divx"; }), Output);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.quality = 0; }), Quality);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.encoderSpeed = "fast"; }), Output);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.encoderThreads = 65; }), EncoderThreads);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.exrPixels = media::ExrPixels::Half; }), Output);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.size = media::FrameSize{5, 5}; }), Size);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.input = "in.%d.rgba8"; }), Input);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.inputFormat = media::FileKind::Y4m; }), InputFormat);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.outputFormat = media::FileKind::Y4m; }),
              OutputFormat);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.rate = media::Rational{0, 1}; }), Rate);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.workers = 0; }), Workers);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.workers = 1024; }), std::nullopt);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.workers = 1025; }), Workers);
    EXPECT_EQ(wrongField([](RenderJob& j) {
                  j.projectSize = media::FrameSize{0, 5};
              }),
              ProjectSize);
    EXPECT_EQ(wrongField([](RenderJob& j) {
                  j.projectSize = media::FrameSize{65536, 65536};
              }),
              std::nullopt);
    for (const media::FrameSize large : {media::FrameSize{65537, 5}, media::FrameSize{5, 65537}}) {
        EXPECT_EQ(wrongField([&](RenderJob& j) { j.projectSize = large; }), ProjectSize);
    }
    media::ClipInfo wide = clip();
    wide.size = {65537, 5};
    EXPECT_EQ(wrongField([](RenderJob&) {}, wide), ProjectSize);
    EXPECT_EQ(wrongField(
                  [](RenderJob& j) {
                      j.projectSize = media::FrameSize{1000, 5};
                  },
                  wide),
              std::nullopt);
    for (const double aspect : {0.1, 10.0}) {
        EXPECT_EQ(wrongField([&](RenderJob& j) { j.pixelAspect = aspect; }), std::nullopt);
    }
    for (const double aspect : {0.0, 0.099, 10.01, 1000.0, HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(wrongField([&](RenderJob& j) { j.pixelAspect = aspect; }), PixelAspect);
    }
    EXPECT_EQ(wrongField([](RenderJob& j) { j.fields = true; }), Fields);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.mask = "mask.mp4"; }), Mask);
    EXPECT_EQ(wrongField([](RenderJob& j) {
                  j.comparison = jobs::Comparison{{}, 1.5};
              }),
              JobField::Comparison);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.framesAtOnce = 0; }), FramesAtOnce);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.framesAtOnce = 257; }), FramesAtOnce);
    EXPECT_EQ(wrongField([](RenderJob& j) { j.resume = true; }), Resume);
}

TEST(RenderPlan, FieldsNeedAnOrderAndTwoLines) {
    media::ClipInfo info = clip();
    info.fields = media::FieldOrder::BottomFirst;
    RenderJob fields = job();
    fields.fields = true;
    EXPECT_EQ(planOf(fields, info).fields, media::FieldOrder::BottomFirst);
    fields.fieldOrder = media::FieldOrder::TopFirst;
    EXPECT_EQ(planOf(fields, info).fields, media::FieldOrder::TopFirst);
    EXPECT_EQ(planOf(fields, info).writing.fields, media::FieldOrder::TopFirst);
    info.size = {720, 1};
    EXPECT_EQ(wrongField([](RenderJob& j) { j.fields = true; }, info), JobField::Fields);
}

TEST(RenderPlan, NotesWhatTheUserShouldKnow) {
    media::ClipInfo info = clip();
    info.uneven = true;
    info.fields = media::FieldOrder::TopFirst;
    RenderJob other = job();
    other.rate = media::Rational{30, 1};
    std::vector<Note> notes;
    planRender(other, info, notes);
    ASSERT_EQ(notes.size(), 3u);
    EXPECT_EQ(notes[0].field, JobField::Rate);
    EXPECT_NE(notes[1].sentence.find("uneven"), std::string::npos);
    EXPECT_EQ(notes[2].see, JobField::Fields);
}

TEST(RenderPlan, AStreamIsRenderedToItsEnd) {
    media::ClipInfo info = clip();
    info.last = media::kEndless;
    info.lastKnown = false;
    RenderJob stream = job();
    stream.input = "-";
    EXPECT_TRUE(planOf(stream, info).endless);
    stream.frames = FrameRange{0, 9};
    EXPECT_FALSE(planOf(stream, info).endless);
}

}  // namespace
}  // namespace ruvex::jobs
