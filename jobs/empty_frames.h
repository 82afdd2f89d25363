// Frames of which a low Resolution leaves nothing.

#pragma once

#include <optional>

#include "jobs/job_error.h"
#include "jobs/render_plan.h"

namespace ruvex::jobs {

/// Says from which Resolution on frames of the plan are empty, if it goes as low as that: the
/// effect works on a picture of Resolution percent of the size, and one without a whole pixel gives
/// black and transparent.
std::optional<Note> emptyFramesNote(const RenderPlan& plan);

}  // namespace ruvex::jobs
