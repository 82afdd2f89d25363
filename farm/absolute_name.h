// Names by which every machine finds a file.

#pragma once

#include <filesystem>

namespace ruvex::farm {

/// The absolute name of a file or folder, which does not have to exist. "." and a separator at the
/// end are dropped, and ".." is cancelled against a folder, but not against a symbolic link: the
/// folder above is that of its target. Links stay, since they may lead elsewhere on another
/// machine.
std::filesystem::path absoluteName(const std::filesystem::path& path);

}  // namespace ruvex::farm
