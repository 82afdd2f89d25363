// What `ruvex level` computes; nothing is left to choose.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_table.h"
#include "cli/parameter_options.h"
#include "jobs/frame_range.h"
#include "looks/look.h"
#include "media/rational.h"

namespace ruvex::cli {

/// The options of `ruvex level`, as typed; empty where one was not given.
struct LevelOptions {
    std::string input;
    std::string rate;
    std::string size;
    std::string frames;
    ParameterOptions parameters;
    std::string plot;
    bool csv = false;
};

OptionTable levelOptions(LevelOptions& options);

struct LevelJob {
    media::Rational rate{25, 1};
    jobs::FrameRange frames;
    std::vector<looks::ParameterChange> parameters;
    std::optional<looks::ProjectSize> projectSize;  ///< Of the look; saved with the parameters.
    std::filesystem::path saveParams;               ///< Empty: they are not saved.
    std::filesystem::path plot;                     ///< Empty: none is drawn.
    std::vector<std::string> warnings;              ///< For the user; the job goes on.
};

/// Looks at the input, if there is one. Throws UsageError and media::MediaError.
LevelJob makeLevelJob(const LevelOptions& options);

}  // namespace ruvex::cli
