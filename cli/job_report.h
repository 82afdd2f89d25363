// What a render is going to do, in words.

#pragma once

#include <string>

#include "cli/render_line.h"
#include "media/clip_info.h"

namespace ruvex::cli {

/// Lines of two columns, with a line end each: the input as it was found, the result, the frames,
/// and every parameter that does not keep its default.
std::string jobReport(const RenderJob& job, const RenderPlan& plan, const media::ClipInfo& clip,
                      const FramesToMake& frames);

}  // namespace ruvex::cli
