#include "farm/planned_clip.h"

#include <utility>

#include "farm/farm_error.h"
#include "farm/input_stamps.h"
#include "jobs/job_file.h"

namespace ruvex::farm {

namespace fs = std::filesystem;

PlannedClip plannedJob(const jobs::RenderJob& job, std::vector<jobs::Note>& notes,
                       Planning planning, const fs::path& index) {
    try {
        media::ReadOptions reading = jobs::readingOf(job);
        reading.index = index;
        auto reader = media::openReader(job.input, reading);
        jobs::RenderPlan plan = planning == Planning::First ? planRender(job, reader->info(), notes)
                                                            : planAgain(job, reader->info(), notes);
        plan.reading.index = index;
        return {std::move(plan), std::move(reader)};
    } catch (const jobs::JobError& error) {
        throw FarmError(std::string(fieldName(error.field())) + ": " + error.what());
    }
}

PlannedClip plannedClip(const Farm& farm, const FarmClip& clip, const jobs::FrameRange& frames) {
    checkJobFile(farm, clip);
    checkInputs(clip, frames);
    std::vector<std::string> warnings;
    std::vector<jobs::Note> notes;
    const fs::path file = farm.layout().jobFile(clip.name);
    PlannedClip planned = plannedJob(jobs::readJob(file, warnings), notes, Planning::Again,
                                     farm.layout().indexFile(clip.name));
    const jobs::RenderPlan& plan = planned.plan;
    const bool same = plan.frames == clip.frames && plan.output == clip.output &&
                      jobs::isJoined(plan) == clip.isJoined();
    if (!same) {
        throw FarmError(clip.input.string() + " has the frames " + toText(plan.frames) + " on " +
                        hostName() + ", and had " + toText(clip.frames) +
                        " when the job was submitted. Submit it anew.");
    }
    return planned;
}

}  // namespace ruvex::farm
