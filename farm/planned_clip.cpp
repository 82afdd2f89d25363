#include "farm/planned_clip.h"

#include <sys/stat.h>

#include "farm/farm_error.h"
#include "files/numbered_path.h"
#include "jobs/job_file.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

void checkInput(const FarmClip& clip) {
    if (!clip.inputStamp) return;
    const auto now = stampOf(clip.input);
    if (!now) {
        throw FarmError(hostName() + " does not see " + clip.input.string() +
                        ". Every machine has to see the clip under this name.");
    }
    if (now != clip.inputStamp) {
        throw FarmError(clip.input.string() +
                        " was changed after the submission. Submit the render of the changed clip "
                        "as a new job.");
    }
}

}  // namespace

std::optional<FileStamp> stampOf(const fs::path& input) {
    const files::NumberedPath path(input);
    struct stat status {};
    if (path.isPattern() || stat(path.plain().c_str(), &status) != 0) return std::nullopt;
    return FileStamp{static_cast<std::uintmax_t>(status.st_size), status.st_mtime};
}

jobs::RenderPlan plannedJob(const jobs::RenderJob& job, std::vector<jobs::Note>& notes) {
    try {
        const auto reader = media::openReader(job.input, jobs::readingOf(job));
        return planRender(job, reader->info(), notes);
    } catch (const jobs::JobError& error) {
        throw FarmError(std::string(fieldName(error.field())) + ": " + error.what());
    }
}

jobs::RenderPlan plannedClip(const Farm& farm, const FarmClip& clip) {
    checkJobFile(farm, clip);
    checkInput(clip);
    std::vector<std::string> warnings;
    std::vector<jobs::Note> notes;
    const fs::path file = farm.layout().jobFile(clip.name);
    jobs::RenderPlan plan = plannedJob(jobs::readJob(file, warnings), notes);
    const bool same = plan.frames == clip.frames && plan.output == clip.output &&
                      jobs::isJoined(plan) == clip.isJoined();
    if (!same) {
        throw FarmError(clip.input.string() + " has the frames " + toText(plan.frames) + " on " +
                        hostName() + ", and had " + toText(clip.frames) +
                        " when the job was submitted. Submit it anew.");
    }
    return plan;
}

}  // namespace ruvex::farm
