// Going on with a sequence that an earlier run has left unfinished.

#pragma once

#include "cli/render_line.h"

namespace ruvex::cli {

/// The plan's frames, less those whose files are there already, if the job goes on with what is
/// there: complete pictures of the right size. Anything else under a frame's name is made again.
/// Pictures of other parameters are not told apart.
FramesToMake framesToMake(const RenderJob& job, const RenderPlan& plan);

}  // namespace ruvex::cli
