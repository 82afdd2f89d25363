// The render of a clip of a farm job, as each task plans it anew.

#pragma once

#include "farm/farm.h"
#include "jobs/render_plan.h"

namespace ruvex::farm {

/// Plans the render of all frames of the clip, some of which are to be rendered now. Throws
/// FarmError if the job file, or what these frames are rendered from, is not what was submitted,
/// and as openReader and planRender do; a JobError becomes a FarmError.
jobs::RenderPlan plannedClip(const Farm& farm, const FarmClip& clip,
                             const jobs::FrameRange& frames);

/// The plan of a job, with its clip looked at. Throws FarmError for a job that cannot be done, with
/// the names of job files, and media::MediaError.
jobs::RenderPlan plannedJob(const jobs::RenderJob& job, std::vector<jobs::Note>& notes);

}  // namespace ruvex::farm
