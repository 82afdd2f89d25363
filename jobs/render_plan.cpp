#include "jobs/render_plan.h"

#include <algorithm>
#include <cmath>

#include "files/numbered_path.h"
#include "jobs/clip_choice.h"
#include "jobs/empty_frames.h"
#include "jobs/files_written.h"
#include "jobs/output_scaling.h"
#include "looks/sound_drift.h"
#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/pixels/fields.h"
#include "media/storage_choice.h"
#include "media/video/stream_loss.h"
#include "parameters/parameter_text.h"

namespace ruvex::jobs {
namespace {

void checkPictureSize(JobField field, media::FrameSize size, media::Depth depth,
                      const std::filesystem::path& file) {
    try {
        media::checkFrameSize(size, depth, file.string());
    } catch (const media::MediaError& error) {
        throw JobError(field, error.what());
    }
}

void checkRegionInside(const RenderJob& job, media::FrameSize size) {
    if (job.region && (std::int64_t{job.region->x} + job.region->width > size.width ||
                       std::int64_t{job.region->y} + job.region->height > size.height)) {
        throw JobError(JobField::Region,
                       "it reaches beyond the picture, which is " + toText(size) + ".");
    }
}

/// checkJob has looked at the size that the job names.
void checkProjectOfInput(const RenderJob& job, media::FrameSize size) {
    if (!job.projectSize && std::max(size.width, size.height) > kLongestProjectSide) {
        throw JobError(JobField::ProjectSize,
                       "the project frame has the input's size, " + toText(size) +
                           ", but both sides have to be at most " +
                           std::to_string(kLongestProjectSide) + ". Give a smaller one.");
    }
}

void checkRoomForFrames(const RenderPlan& plan) {
    const bool one = media::isStill(media::fileKind(plan.output)) &&
                     !files::NumberedPath(plan.output).isPattern();
    if (one && plan.frames.count() > 1) {
        const std::string count = plan.endless ? "more" : std::to_string(plan.frames.count());
        throw JobError(JobField::Output,
                       plan.output.string() + " holds one frame, but " + count +
                           " are to be rendered. Put a number into its name, as in out.%05d.png, "
                           "or choose one frame.",
                       JobField::Frames);
    }
}

/// Checks that the output's codec and container can hold such frames.
void checkStorage(const RenderPlan& plan) {
    const std::string fault = media::pictureFault(plan.output, plan.writing);
    if (!fault.empty()) throw JobError(JobField::Output, plan.output.string() + ": " + fault);
}

void noteQuality(const RenderJob& job, std::vector<Note>& notes) {
    const std::string doubt = media::qualityDoubt(job.output, storageOf(job));
    if (!doubt.empty()) notes.push_back({JobField::Quality, doubt});
    const std::string rate = media::unlimitedRate(job.output, storageOf(job));
    if (!rate.empty()) notes.push_back({JobField::EncoderThreads, rate, JobField::Quality});
}

void checkReadFilesKept(const RenderPlan& plan) {
    FilesWritten written;
    written.addOutput(plan.output, plan.frames);
    written.checkInputKept(plan.input, plan.mask);
}

/// Microseconds that a number of frames takes.
std::int64_t duration(std::int64_t frames, const media::Rational& rate) {
    constexpr double kMicrosecondsPerSecond = 1e6;
    return std::llround(static_cast<double>(frames) * kMicrosecondsPerSecond / rate.value());
}

/// The sound and the subtitles that belong to the frames; all of them where all frames are
/// rendered, since they may be longer than the frames.
media::CopySource copiedOf(const RenderJob& job, const media::ClipInfo& clip,
                           const RenderPlan& plan) {
    if (media::fileKind(plan.input) != media::FileKind::Video) return {};
    media::CopySource copied{files::NumberedPath(plan.input).plain()};
    copied.sound = !job.mute;
    copied.zero = clip.start + duration(plan.frames.first, plan.rate);
    if (plan.frames.first > clip.first) copied.from = copied.zero;
    if (plan.frames.last < clip.last) {
        copied.to = clip.start + duration(plan.frames.last + 1, plan.rate);
    }
    return copied;
}

/// The order in which fields are rendered; Progressive for whole frames.
media::FieldOrder fieldsToRender(const RenderJob& job, const media::ClipInfo& clip,
                                 media::FieldOrder order) {
    if (!job.fields) return media::FieldOrder::Progressive;
    if (order == media::FieldOrder::Progressive) {
        throw JobError(JobField::Fields,
                       job.input.string() +
                           (job.fieldOrder ? " is said to have no fields."
                                           : " does not say that it is interlaced. If it is, say "
                                             "which field comes first."),
                       JobField::FieldOrder);
    }
    if (clip.size.height < 2) {
        throw JobError(JobField::Fields,
                       job.input.string() + " has only one line; fields need two.");
    }
    return order;
}

/// The clip's tags, with the time code of the first frame that is rendered.
media::ClipTags tagsOf(const media::ClipInfo& clip, const RenderPlan& plan) {
    media::ClipTags tags = clip.tags;
    tags.timecode = media::timecodeAfter(tags.timecode, plan.rate, plan.frames.first - clip.first);
    return tags;
}

media::WriteOptions writingOf(const RenderJob& job, const media::ClipInfo& clip,
                              const RenderPlan& plan) {
    const media::FrameSize rendered = renderedSize(plan);
    const media::FrameSize size = job.outputSize.value_or(rendered);
    return {.size = size,
            .depth = plan.depth,
            .rate = plan.rate,
            .pixelAspect = scaledPixelAspect(clip.pixelAspect, rendered, size),
            .colour = clip.colour,
            .hdr = clip.hdr,
            .alpha = job.alpha,
            .quality = job.quality,
            .codec = job.codec,
            .encoderSpeed = job.encoderSpeed,
            .encoderThreads = job.encoderThreads,
            .exrPixels = job.exrPixels,
            .exrCompression = job.exrCompression,
            .copied = copiedOf(job, clip, plan),
            .format = job.outputFormat,
            .bits = clip.bits,
            .chroma = clip.chroma,
            .fields = job.fieldOrder.value_or(clip.fields),
            .tags = tagsOf(clip, plan)};
}

bool holdsRawFrames(const RenderJob& job) {
    const media::FileKind kind = media::fileKind(job.output);
    return media::rawDepth(kind == media::FileKind::Stream ? job.outputFormat.value_or(kind) : kind)
        .has_value();
}

/// Whether the result is made opaque. In a time line, other tracks would show through the holes
/// that the effect makes in a picture without alpha. Raw frames are for programs, which get the
/// effect's own alpha.
bool isOpaque(const RenderJob& job, const media::ClipInfo& clip,
              const media::WriteOptions& writing) {
    if (!storesAlpha(job.output, writing)) return false;
    if (job.resultAlpha) return *job.resultAlpha == ResultAlpha::Opaque;
    return !clip.hasAlpha && !holdsRawFrames(job);
}

/// With a mask the effect shows the current frame at all times.
void noteSoundDrift(const RenderPlan& plan, std::vector<Note>& notes) {
    // Seconds. A smaller lag is seen as a picture that stands still, not as sound that comes early.
    constexpr double kNoticedLag = 0.2;
    const double lag = looks::framesBehind(plan.parameters) / plan.rate.value();
    const bool moved = looks::movesPictures(plan.parameters);
    const bool video = media::fileKind(plan.output) == media::FileKind::Video;
    if (!video || !plan.mask.empty() || !(moved || lag > kNoticedLag)) return;
    if (!media::hasSound(plan.writing.copied)) return;
    const std::string clip = plan.input.string();
    notes.push_back({JobField::Input,
                     moved ? "Play Speed moves the pictures of " + clip +
                                 " away from its sound, which keeps its speed."
                           : "Repeat Frames shows pictures of " + clip + " up to " +
                                 formatNumber(std::round(lag * 100.0) / 100.0) +
                                 " s after their sound.",
                     JobField::Mute});
}

void noteFields(const RenderJob& job, const media::ClipInfo& clip, std::vector<Note>& notes) {
    if (clip.fields != media::FieldOrder::Progressive && !job.fields && !job.fieldOrder) {
        notes.push_back({JobField::Input,
                         job.input.string() + " is interlaced, " + toText(clip.fields) +
                             ". Its frames are rendered whole, not each field by itself.",
                         JobField::Fields});
    }
}

/// The fields of the plan that the job alone decides.
RenderPlan planFromJob(const RenderJob& job) {
    RenderPlan plan;
    plan.input = job.input;
    plan.reading = readingOf(job);
    plan.parameters = looks::lastChanges(job.parameters);
    plan.workers = job.workers;
    plan.region = job.region;
    plan.mask = job.mask;
    plan.ends = job.ends;
    plan.comparison = job.comparison;
    plan.framesAtOnce = job.framesAtOnce;
    plan.resume = job.resume;
    plan.output = job.output;
    return plan;
}

}  // namespace

media::FrameSize renderedSize(const RenderPlan& plan) {
    return plan.comparison ? comparedSize(*plan.comparison, plan.size) : plan.size;
}

RenderPlan planAgain(const RenderJob& job, const media::ClipInfo& clip, std::vector<Note>& notes) {
    checkJob(job);
    RenderPlan plan = planFromJob(job);
    plan.size = clip.size;
    plan.depth = job.depth.value_or(clip.depth);
    plan.rate = chooseRate(job.input, clip, job.rate, notes);
    noteFields(job, clip, notes);
    plan.frames = chooseFrames(job.input, clip, job.frames);
    plan.endless = !clip.lastKnown && !job.frames;
    checkPictureSize(JobField::Input, plan.size, plan.depth, job.input);
    checkRegionInside(job, plan.size);
    checkProjectOfInput(job, plan.size);
    checkRoomForFrames(plan);
    const media::FrameSize project = job.projectSize.value_or(plan.size);
    plan.project = {project.width, project.height, job.pixelAspect, plan.rate.value()};
    plan.writing = writingOf(job, clip, plan);
    plan.opaque = isOpaque(job, clip, plan.writing);
    plan.fields = fieldsToRender(job, clip, plan.writing.fields);
    checkPictureSize(JobField::Output, plan.writing.size, plan.depth, job.output);
    checkStorage(plan);
    noteQuality(job, notes);
    noteSoundDrift(plan, notes);
    if (const auto note = emptyFramesNote(plan)) notes.push_back(*note);
    return plan;
}

RenderPlan planRender(const RenderJob& job, const media::ClipInfo& clip, std::vector<Note>& notes) {
    RenderPlan plan = planAgain(job, clip, notes);
    checkReadFilesKept(plan);
    return plan;
}

}  // namespace ruvex::jobs
