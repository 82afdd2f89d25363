// `ruvex render`: a clip through the effect.

#pragma once

#include "cli/render_options.h"

namespace ruvex::cli {

/// Renders; the exit status. Throws UsageError, media::MediaError and runtime::Error.
int runRender(const RenderOptions& options);

}  // namespace ruvex::cli
