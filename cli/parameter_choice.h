// The parameters that a command line asks for, together.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/parameter_change.h"
#include "cli/parameter_options.h"
#include "runtime/effect_session.h"

namespace ruvex::cli {

struct ParameterChoice {
    /// In the order in which they are made: preset, parameter file, settings, keys. A later one
    /// goes over an earlier one of the same parameter.
    std::vector<ParameterChange> changes;
    std::filesystem::path saveTo;  ///< Empty: they are not saved.
};

/// What a preset of the table, 0 to kPresetCount - 1, changes.
std::vector<ParameterChange> presetChanges(int preset);

/// From the texts of the options. Throws UsageError, also for a parameter that --set and --key, or
/// two --key, are given for: that is a slip of the pen; ParameterFileError and media::MediaError
/// for files. May add to `warnings`.
ParameterChoice readParameters(const ParameterOptions& options, std::vector<std::string>& warnings);

/// Hands them to the effect, and saves what it then has if that is asked for. Throws runtime::Error
/// and media::MediaError.
void setParameters(runtime::EffectSession& session, const ParameterChoice& choice);

/// Every parameter of the table as the effect has it: its keys, or its value.
std::vector<ParameterChange> parametersOf(const runtime::EffectSession& session);

}  // namespace ruvex::cli
