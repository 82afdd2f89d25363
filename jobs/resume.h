// Continuing a sequence that an earlier render has left unfinished.

#pragma once

#include <stop_token>

#include "jobs/pipeline.h"

namespace ruvex::jobs {

/// The plan's frames; if it resumes, without those whose files are complete pictures of the right
/// size. Which parameters a picture was made with cannot be seen. Incomplete if a stop is
/// requested.
FramesToMake framesToMake(const RenderPlan& plan, const std::stop_token& stop = {});

}  // namespace ruvex::jobs
