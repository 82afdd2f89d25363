// A planned render as text.

#pragma once

#include <string>

#include "jobs/pipeline.h"
#include "media/clip_info.h"

namespace ruvex::cli {

/// Lines of two columns: the input as it was found, the result, the frames, and every parameter
/// that does not have its default.
std::string jobReport(const jobs::RenderPlan& plan, const media::ClipInfo& clip,
                      const jobs::FramesToMake& frames);

}  // namespace ruvex::cli
