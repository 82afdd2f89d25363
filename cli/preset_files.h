// The presets as parameter files, to start looks of one's own from.

#pragma once

#include <filesystem>

namespace ruvex::cli {

/// Writes one file for each preset, named after it, into a folder, which is made if it is not
/// there. Throws MediaError.
void writePresetFiles(const std::filesystem::path& folder);

}  // namespace ruvex::cli
