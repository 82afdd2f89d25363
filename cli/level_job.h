// What `ruvex level` computes; nothing is left to choose.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/level_options.h"
#include "jobs/frame_range.h"
#include "looks/parameter_change.h"
#include "media/rational.h"

namespace ruvex::cli {

struct LevelJob {
    media::Rational rate{25, 1};
    jobs::FrameRange frames;
    std::vector<looks::ParameterChange> parameters;
    std::filesystem::path saveParams;   ///< Empty: they are not saved.
    std::filesystem::path plot;         ///< Empty: none is drawn.
    std::vector<std::string> warnings;  ///< For the user; the job goes on.
};

/// Looks at the input, if there is one. Throws UsageError and media::MediaError.
LevelJob makeLevelJob(const LevelOptions& options);

}  // namespace ruvex::cli
