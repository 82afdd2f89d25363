// The parameters that a command line asks for, together.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/parameter_option.h"
#include "runtime/effect_session.h"

namespace ruvex::cli {

/// The options that choose parameters, as they are typed.
struct ParameterOptions {
    std::string preset;
    std::vector<std::string> settings;
    std::vector<std::string> keys;
};

struct ParameterChoice {
    /// Written first; settings and animations go over it.
    std::optional<int> preset;
    std::vector<Setting> settings;
    std::vector<Animation> animations;
};

/// From the texts of --preset and of all --set and --key. Throws UsageError, also for a parameter
/// that is set and animated at once, or animated twice: that is a slip of the pen. May add to
/// `warnings`.
ParameterChoice readParameters(const ParameterOptions& options, std::vector<std::string>& warnings);

/// Hands them to the effect. Throws runtime::Error.
void setParameters(runtime::EffectSession& session, const ParameterChoice& choice);

}  // namespace ruvex::cli
