// The options that choose parameters, read.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/parameter_options.h"
#include "looks/look.h"

namespace ruvex::cli {

/// The changes in the order in which they are made: preset, look file, settings, keys. A later one
/// replaces an earlier one of the same parameter. The keys of preset and look file are shifted by
/// --key-offset. The project frame is that of the look file, or else of the preset; the look has no
/// texts. Throws UsageError, also for two --key of one parameter; looks::LookFileError and
/// files::FileError for files. May add to `warnings`.
looks::Look readParameters(const ParameterOptions& options, std::vector<std::string>& warnings);

/// A warning for each parameter of --set and --key, and each keyed one of a look, that cannot
/// change any picture because of the others. `changes` is what readParameters gave.
std::vector<std::string> effectWarnings(const ParameterOptions& options,
                                        const std::vector<looks::ParameterChange>& changes);

/// The look files that the options read.
std::vector<std::filesystem::path> lookFilesOf(const ParameterOptions& options);

}  // namespace ruvex::cli
