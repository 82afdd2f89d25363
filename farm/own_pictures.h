// Which pictures of a sequence are the farm job's own.

#pragma once

#include <filesystem>
#include <optional>

#include "farm/farm.h"
#include "jobs/render_plan.h"

namespace ruvex::farm {

/// For RenderPlan::keptAfter: the pictures of a chunk that are later are the job's own, and those
/// that are not belong to an earlier render. The first call for a chunk sets the moment, by a mark
/// in the folder of the job. Empty for a video, and for a job that keeps the pictures of earlier
/// renders ("resume"). Throws FarmError or files::FileError.
std::optional<std::filesystem::file_time_type> ownPicturesAfter(const Farm& farm,
                                                                const FarmChunk& chunk,
                                                                const jobs::RenderPlan& plan);

/// The pictures of the chunk that are there now are not the job's own any more, also if the job
/// keeps those of earlier renders. Throws files::FileError.
void disownPictures(const Farm& farm, const FarmChunk& chunk);

}  // namespace ruvex::farm
