// `ruvex level`: the level of breakup and what it does, frame by frame.

#pragma once

#include "cli/level_options.h"

namespace ruvex::cli {

/// Prints, and draws the plot if there is to be one; the exit status. Throws UsageError,
/// media::MediaError and runtime::Error.
int runLevel(const LevelOptions& options);

}  // namespace ruvex::cli
