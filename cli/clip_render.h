// A clip through the effect, from its first frame to its last, into a file.

#pragma once

#include "cli/render_job.h"

namespace ruvex::cli {

/// Looks at the input, renders and writes; the exit status. Throws UsageError, media::MediaError
/// and runtime::Error.
int renderClip(RenderJob job);

}  // namespace ruvex::cli
