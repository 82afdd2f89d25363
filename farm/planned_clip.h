// The render of a clip of a farm job, as each task plans it anew.

#pragma once

#include "farm/farm.h"
#include "jobs/render_plan.h"

namespace ruvex::farm {

/// The stamp of a file; empty for a numbered sequence and what is not there.
std::optional<FileStamp> stampOf(const std::filesystem::path& input);

/// Plans the render of all frames of the clip. Throws FarmError if the job file or the clip is not
/// what was submitted, and as openReader and planRender do; a JobError becomes a FarmError.
jobs::RenderPlan plannedClip(const Farm& farm, const FarmClip& clip);

/// The plan of a job, with its clip looked at. Throws FarmError for a job that cannot be done, with
/// the names of job files, and media::MediaError.
jobs::RenderPlan plannedJob(const jobs::RenderJob& job, std::vector<jobs::Note>& notes);

}  // namespace ruvex::farm
