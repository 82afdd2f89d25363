// Names of temporary files beside the ones that they become.

#pragma once

#include <filesystem>
#include <string>

#include "files/numbered_path.h"

namespace ruvex::files {

/// A hidden name in the folder of `final` that no other process, and no other file of this one,
/// uses: ".NAME.partial-PID-COUNT". A NAME that would become too long for the file system is cut
/// and ends in "~" and a number that follows from the whole of it.
std::filesystem::path partialName(const std::filesystem::path& final);

/// Whether `name`, without a folder, is that of a temporary file of `final`, in which percent signs
/// stand for themselves.
bool isPartialOf(const std::string& name, const std::filesystem::path& final);

/// Whether `name`, without a folder, is that of a temporary file of a numbered sequence. Of a name
/// that was cut, only the letters before the number can be compared.
bool isPartialOf(const std::string& name, const NumberedPath& sequence);

}  // namespace ruvex::files
