// The parameters that a command line asks for, together.

#pragma once

#include "cli/parameter_option.h"
#include "runtime/effect_session.h"

namespace ruvex::cli {

struct ParameterChoice {
    std::vector<Setting> settings;
    std::vector<Animation> animations;
};

/// From the texts of all --set and --key. Throws UsageError, also for a parameter that is set and
/// animated at once, or animated twice: that is a slip of the pen. May add to `warnings`.
ParameterChoice readParameters(const std::vector<std::string>& settings,
                               const std::vector<std::string>& keys,
                               std::vector<std::string>& warnings);

/// Hands them to the effect. Throws runtime::Error.
void setParameters(runtime::EffectSession& session, const ParameterChoice& choice);

}  // namespace ruvex::cli
