// The render of a clip of a farm job, as each task plans it anew.

#pragma once

#include <memory>

#include "farm/farm.h"
#include "jobs/render_plan.h"
#include "media/frame_reader.h"

namespace ruvex::farm {

/// A render, and the reader that was opened for it.
struct PlannedClip {
    jobs::RenderPlan plan;
    std::unique_ptr<media::FrameReader> reader;
};

/// Plans the render of all frames of the clip, some of which are to be rendered now. Throws
/// FarmError if the job file, or what these frames are rendered from, is not what was submitted,
/// and as openReader and planRender do; a JobError becomes a FarmError.
PlannedClip plannedClip(const Farm& farm, const FarmClip& clip, const jobs::FrameRange& frames);

/// Whether a job is planned for the first time, when all files that it names are looked at.
enum class Planning { First, Again };

/// The plan of a job, with its clip looked at; `index` as in media::ReadOptions. Throws FarmError
/// for a job that cannot be done, with the names of job files, and media::MediaError.
PlannedClip plannedJob(const jobs::RenderJob& job, std::vector<jobs::Note>& notes,
                       Planning planning, const std::filesystem::path& index = {});

}  // namespace ruvex::farm
