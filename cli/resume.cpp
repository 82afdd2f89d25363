#include "cli/resume.h"

#include "cli/interruption.h"
#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/numbered_path.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

bool isComplete(const fs::path& file, media::FrameSize size) {
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) {
        return false;
    }
    try {
        media::ReadOptions options;
        if (media::rawDepth(media::fileKind(file))) {
            options.size = size;
        }
        const auto reader = media::openReader(file, options);
        media::Frame frame;
        return reader->info().size == size && reader->read(reader->info().first, frame);
    } catch (const media::MediaError&) {
        return false;
    }
}

}  // namespace

FramesToMake framesToMake(const RenderJob& job, const RenderPlan& plan) {
    FramesToMake frames{.range = plan.frames, .endless = plan.endless};
    if (!job.resume) {
        return frames;
    }
    const media::NumberedPath files(job.output);
    for (std::int64_t k = plan.frames.first; k <= plan.frames.last && !stopWished(); ++k) {
        if (isComplete(files.file(k), plan.output.size)) {
            frames.made.insert(k);
        }
    }
    return frames;
}

}  // namespace ruvex::cli
