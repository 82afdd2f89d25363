#include "jobs/frames_to_make.h"

#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/media_error.h"

namespace ruvex::jobs {
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
        const auto reader = media::openReader(files::asNumberedPath(file), options);
        media::Frame frame;
        return reader->info().size == size && reader->read(reader->info().first, frame);
    } catch (const media::MediaError&) {
        return false;
    }
}

/// Whether the file is later than the plan asks for.
bool isKept(const RenderPlan& plan, const fs::path& file) {
    if (!plan.keptAfter) return true;
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(file, error);
    return !error && time > *plan.keptAfter;
}

}  // namespace

FramesToMake framesToMake(const RenderPlan& plan, const std::stop_token& stop) {
    FramesToMake frames{.range = plan.frames, .endless = plan.endless};
    if (!plan.resume) {
        return frames;
    }
    const files::NumberedPath names(plan.output);
    for (std::int64_t k = plan.frames.first; k <= plan.frames.last && !stop.stop_requested(); ++k) {
        const fs::path file = names.file(k);
        if (isKept(plan, file) && isComplete(file, plan.writing.size)) {
            frames.made.insert(k);
        }
    }
    return frames;
}

}  // namespace ruvex::jobs
