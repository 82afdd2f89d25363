#include "cli/render_plan.h"

#include <cmath>

#include "cli/clip_choice.h"
#include "cli/media_options.h"
#include "cli/usage_error.h"
#include "media/file_kind.h"
#include "media/numbered_path.h"

namespace ruvex::cli {
namespace {

void checkRegion(const RenderJob& job, media::FrameSize size) {
    if (job.region && (std::int64_t{job.region->x} + job.region->width > size.width ||
                       std::int64_t{job.region->y} + job.region->height > size.height)) {
        throw UsageError("--region: it reaches beyond the picture, which is " + toText(size) + ".");
    }
}

void checkRoomForFrames(const RenderJob& job, const RenderPlan& plan) {
    const bool one =
        media::isStill(media::fileKind(job.output)) && !media::NumberedPath(job.output).isPattern();
    const std::int64_t count = plan.frames.last - plan.frames.first + 1;
    if (one && count > 1) {
        throw UsageError(job.output.string() + " holds one frame, but " +
                         (plan.endless ? "more" : std::to_string(count)) +
                         " are to be rendered. Put a number into its name, as in out.%05d.png, or "
                         "choose one frame with --frames.");
    }
}

std::int64_t microseconds(std::int64_t frames, const media::Rational& rate) {
    constexpr double kMicro = 1e6;
    return std::llround(static_cast<double>(frames) * kMicro / rate.value());
}

/// The sound of the frames; all of it where all frames are rendered, as it may be longer.
media::AudioSource soundOf(const RenderJob& job, const media::ClipInfo& clip,
                           const RenderPlan& plan) {
    if (media::fileKind(job.input) != media::FileKind::Video) {
        return {};
    }
    media::AudioSource sound{job.input};
    sound.zero = clip.start + microseconds(plan.frames.first, plan.rate);
    if (plan.frames.first > clip.first) {
        sound.from = sound.zero;
    }
    if (plan.frames.last < clip.last) {
        sound.to = clip.start + microseconds(plan.frames.last + 1, plan.rate);
    }
    return sound;
}

/// In what order the fields are rendered; Progressive for whole frames.
media::FieldOrder fieldsToRender(const RenderJob& job, const media::ClipInfo& clip,
                                 media::FieldOrder order) {
    if (!job.fields) {
        return media::FieldOrder::Progressive;
    }
    if (order == media::FieldOrder::Progressive) {
        throw UsageError("--fields: " + job.input.string() +
                         (job.fieldOrder
                              ? " is said to have none (--field-order none)."
                              : " does not say that it is interlaced. If it is, say which field "
                                "comes first (--field-order top or bottom)."));
    }
    if (clip.size.height < 2) {
        throw UsageError("--fields: " + job.input.string() +
                         " has one line, and so no two fields.");
    }
    return order;
}

/// The clip's own, as they are for its part that is rendered.
media::ClipTags tagsOf(const media::ClipInfo& clip, const RenderPlan& plan) {
    media::ClipTags tags = clip.tags;
    tags.timecode = media::timecodeAfter(tags.timecode, plan.rate, plan.frames.first - clip.first);
    return tags;
}

void warnOf(const media::ClipInfo& clip, RenderJob& job, const media::Rational& rate) {
    if (clip.uneven) {
        job.warnings.push_back("The frames of " + job.input.string() +
                               " are of uneven length: they are rendered at a constant " +
                               toText(rate) + " frames a second.");
    }
    if (clip.fields != media::FieldOrder::Progressive && !job.fields && !job.fieldOrder) {
        job.warnings.push_back(job.input.string() + " is interlaced, " + toText(clip.fields) +
                               ". Its frames are rendered whole; 'ruvex render --fields' renders "
                               "each field by itself.");
    }
}

}  // namespace

RenderPlan makeRenderPlan(RenderJob& job, const media::ClipInfo& clip) {
    RenderPlan plan;
    plan.size = clip.size;
    plan.depth = job.depth.value_or(clip.depth);
    plan.rate = chooseRate(job.input, clip, job.rate, job.warnings);
    warnOf(clip, job, plan.rate);
    plan.clip = {clip.first, clip.last};
    plan.frames = chooseFrames(job.input, clip, job.frames);
    plan.endless = !clip.lastKnown && !job.frames;
    checkFrameSize(plan.size, plan.depth, job.input.string());
    checkRegion(job, plan.size);
    checkRoomForFrames(job, plan);
    const media::FrameSize project = job.projectSize.value_or(plan.size);
    plan.project = {project.width, project.height, job.pixelAspect, plan.rate.value()};
    plan.output = {plan.size, plan.depth, plan.rate, clip.pixelAspect, clip.colour, job.alpha};
    plan.output.quality = job.quality;
    plan.output.codec = job.codec;
    plan.output.tags = tagsOf(clip, plan);
    plan.output.audio = soundOf(job, clip, plan);
    plan.output.format = job.outputFormat;
    plan.output.bits = clip.bits;
    plan.output.chroma = clip.chroma;
    plan.output.fields = job.fieldOrder.value_or(clip.fields);
    plan.fields = fieldsToRender(job, clip, plan.output.fields);
    if (job.comparison) {
        plan.output.size = comparedSize(*job.comparison, plan.size);
        checkFrameSize(plan.output.size, plan.depth, job.output.string());
    }
    return plan;
}

}  // namespace ruvex::cli
