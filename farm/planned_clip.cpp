#include "farm/planned_clip.h"

#include "farm/farm_error.h"
#include "farm/input_stamps.h"
#include "jobs/job_file.h"

namespace ruvex::farm {
jobs::RenderPlan plannedJob(const jobs::RenderJob& job, std::vector<jobs::Note>& notes) {
    try {
        const auto reader = media::openReader(job.input, jobs::readingOf(job));
        return planRender(job, reader->info(), notes);
    } catch (const jobs::JobError& error) {
        throw FarmError(std::string(fieldName(error.field())) + ": " + error.what());
    }
}

jobs::RenderPlan plannedClip(const Farm& farm, const FarmClip& clip,
                             const jobs::FrameRange& frames) {
    checkJobFile(farm, clip);
    checkInputs(clip, frames);
    std::vector<std::string> warnings;
    std::vector<jobs::Note> notes;
    const std::filesystem::path file = farm.layout().jobFile(clip.name);
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
