// Names by which every machine finds a file.

#pragma once

#include <filesystem>

namespace ruvex::farm {

/// The absolute name of a file or folder, which does not have to exist. "." and a separator at the
/// end are dropped; ".." stays, since it cannot be cancelled against a symbolic link, and links
/// stay, since they may lead elsewhere on another machine.
std::filesystem::path absoluteName(const std::filesystem::path& path);

}  // namespace ruvex::farm
