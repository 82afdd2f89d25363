#include "jobs/render_job.h"

#include <algorithm>
#include <utility>

#include "files/numbered_path.h"
#include "jobs/job_names.h"
#include "jobs/mask.h"
#include "media/file_kind.h"
#include "media/frame_writer.h"
#include "media/media_error.h"
#include "media/storage_choice.h"
#include "parameters/ruvex_interface.h"

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;

std::string rangeText(int low, int high) {
    return "a whole number from " + std::to_string(low) + " to " + std::to_string(high);
}

void checkNumber(JobField field, std::optional<int> value, int low, int high) {
    if (value && (*value < low || *value > high)) {
        throw JobError(field, std::to_string(*value) + " is not " + rangeText(low, high) + ".");
    }
}

void checkSize(JobField field, const std::optional<media::FrameSize>& size) {
    if (size && (size->width < 1 || size->height < 1)) {
        throw JobError(field, toText(*size) + " is not a size; both sides have to be at least 1.");
    }
}

void checkRate(const RenderJob& job) {
    if (job.rate && job.rate->num <= 0) {
        throw JobError(JobField::Rate, toText(*job.rate) + " is not a rate; it has to be above 0.");
    }
}

/// Written so that NaN is outside too.
void checkPixelAspect(const RenderJob& job) {
    if (!(job.pixelAspect >= kLeastPixelAspect && job.pixelAspect <= kMostPixelAspect)) {
        throw JobError(JobField::PixelAspect, "it has to be from 0.1 to 10.");
    }
}

void checkProjectSize(const RenderJob& job) {
    checkSize(JobField::ProjectSize, job.projectSize);
    if (job.projectSize &&
        std::max(job.projectSize->width, job.projectSize->height) > kLongestProjectSide) {
        throw JobError(JobField::ProjectSize, toText(*job.projectSize) +
                                                  " is too large; both sides have to be at most " +
                                                  std::to_string(kLongestProjectSide) + ".");
    }
}

void checkFrameNumbers(const RenderJob& job) {
    if (!job.frames) return;
    if (job.frames->first < 0 || job.frames->last < job.frames->first) {
        throw JobError(JobField::Frames,
                       "the first frame has to be at least 0, and the last at "
                       "least the first.");
    }
    if (job.frames->last >= kFrameNumberEnd) {
        throw JobError(JobField::Frames,
                       "frame numbers have to be below " + std::to_string(kFrameNumberEnd) + ".");
    }
}

void checkRegion(const RenderJob& job) {
    if (job.region && (job.region->x < 0 || job.region->y < 0 || job.region->width < 1 ||
                       job.region->height < 1)) {
        throw JobError(JobField::Region,
                       "x and y have to be at least 0, width and height at least 1.");
    }
}

void checkComparison(const RenderJob& job) {
    if (job.comparison && !(job.comparison->splitAt >= 0.0 && job.comparison->splitAt <= 1.0)) {
        throw JobError(JobField::Comparison, "the split has to be from 0 to 1.");
    }
}

void checkStreamFormat(JobField field, const std::optional<media::FileKind>& format,
                       const fs::path& path) {
    if (format && nameOf(*format).empty()) {
        throw JobError(field, "a stream holds y4m, rgba8 or s214.");
    }
    if (format && media::fileKind(path) != media::FileKind::Stream) {
        throw JobError(
            field, "this is for streams (-); the ending of " + path.string() + " says what it is.");
    }
}

/// What the input holds. A size says that a stream is raw, if nothing else does.
media::FileKind inputKind(const RenderJob& job) {
    const media::FileKind kind = media::fileKind(job.input);
    if (kind != media::FileKind::Stream) return kind;
    return job.inputFormat.value_or(job.size ? media::FileKind::RawRgba8 : media::FileKind::Y4m);
}

void checkOutput(const RenderJob& job) {
    if (!media::canWrite(job.output)) {
        throw JobError(JobField::Output, job.output.string() +
                                             ": files with this ending cannot be written. Use one "
                                             "of " +
                                             media::writableEndings() + ".");
    }
    const std::string fault = media::storageFault(job.output, storageOf(job));
    if (!fault.empty()) {
        throw JobError(JobField::Output, job.output.string() + ": " + fault);
    }
}

/// Only a sequence of files can be continued.
void checkResume(const RenderJob& job) {
    if (job.resume && !files::NumberedPath(job.output).isPattern()) {
        throw JobError(JobField::Resume,
                       "only numbered pictures can be continued, and " + job.output.string() +
                           " is one file. Render into a sequence, as in out.%05d.png.");
    }
}

}  // namespace

media::StorageChoice storageOf(const RenderJob& job) {
    return {.codec = job.codec,
            .quality = job.quality,
            .encoderSpeed = job.encoderSpeed,
            .encoderThreads = job.encoderThreads,
            .exrPixels = job.exrPixels,
            .exrCompression = job.exrCompression};
}

media::ReadOptions readingOf(const RenderJob& job) {
    return {.size = job.size,
            .depth = job.depth,
            .alpha = job.alpha,
            .format = job.inputFormat,
            .fields = job.fieldOrder,
            .rate = job.rate};
}

void checkRawSize(const RenderJob& job) {
    const auto stored = media::rawDepth(inputKind(job));
    if (stored && !job.size) {
        throw JobError(JobField::Input,
                       job.input.string() + " holds raw frames, whose size has to be given.",
                       JobField::Size);
    }
    if (!stored && job.size) {
        throw JobError(JobField::Size,
                       "this is for raw frames; " + job.input.string() + " has its own size.");
    }
    if (!stored) return;
    try {
        media::checkFrameSize(*job.size, job.depth.value_or(*stored), "the frame");
    } catch (const media::MediaError& error) {
        throw JobError(JobField::Size, error.what());
    }
}

void checkJob(const RenderJob& job) {
    checkStreamFormat(JobField::InputFormat, job.inputFormat, job.input);
    checkStreamFormat(JobField::OutputFormat, job.outputFormat, job.output);
    checkSize(JobField::Size, job.size);
    checkSize(JobField::OutputSize, job.outputSize);
    checkProjectSize(job);
    checkRate(job);
    checkPixelAspect(job);
    checkFrameNumbers(job);
    checkRegion(job);
    checkComparison(job);
    checkNumber(JobField::Quality, job.quality, 1, 100);
    checkNumber(JobField::EncoderThreads, job.encoderThreads, 1, media::kMostEncoderThreads);
    checkNumber(JobField::FramesAtOnce, job.framesAtOnce, 1, kMostFramesAtOnce);
    checkNumber(JobField::Workers, job.workers, 1, kMostWorkers);
    if (!job.mask.empty()) checkMaskName(job.mask);
    checkRawSize(job);
    checkOutput(job);
    checkResume(job);
}

}  // namespace ruvex::jobs
