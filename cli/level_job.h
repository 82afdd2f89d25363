// What `ruvex level` is to work out; nothing is left to choose.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/level_options.h"
#include "cli/option_text.h"
#include "cli/parameter_choice.h"

namespace ruvex::cli {

struct LevelJob {
    media::Rational rate{25, 1};
    FrameRange frames;
    ParameterChoice parameters;
    std::filesystem::path plot;         ///< Empty: none is drawn.
    std::vector<std::string> warnings;  ///< For the person; the job goes on.
};

/// Looks at the input, if there is one. Throws UsageError and media::MediaError.
LevelJob makeLevelJob(const LevelOptions& options);

}  // namespace ruvex::cli
