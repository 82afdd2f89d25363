// The looks that come with the effect.

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "looks/parameter_change.h"

namespace ruvex::looks {

/// A name that belongs to no look.
class UnknownLook : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The changes that a preset of the table makes; `preset` is 0 to kPresetCount - 1.
std::vector<ParameterChange> presetChanges(int preset);

/// The look called `name`: a preset, by its name, or else a look file, by its path. Throws
/// UnknownLook where there is neither, and as readLookFile does. May add to `warnings`.
std::vector<ParameterChange> readLook(const std::string& name, std::vector<std::string>& warnings);

/// Writes each preset as a look file, named after it, into `folder`, which is created if missing.
/// Throws files::FileError.
void writePresetFiles(const std::filesystem::path& folder);

}  // namespace ruvex::looks
