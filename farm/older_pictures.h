// The pictures of a sequence that were there before the farm job.

#pragma once

#include "farm/farm.h"
#include "jobs/render_plan.h"

namespace ruvex::farm {

/// To be called before each rendering of a chunk, which keeps the pictures that it finds: the first
/// call for a chunk of a sequence removes its pictures, which are those of an earlier render,
/// unless the job says that they are kept ("resume"). Throws FarmError or files::FileError.
void removeOlderPictures(const Farm& farm, const FarmChunk& chunk, const jobs::RenderPlan& plan);

}  // namespace ruvex::farm
