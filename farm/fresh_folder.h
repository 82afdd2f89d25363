// Folders on disks that several machines share.

#pragma once

#include <filesystem>
#include <string>
#include <unordered_set>

namespace ruvex::farm {

/// Of the file that refreshFolder makes, as files::partialName has it.
inline constexpr const char* kRefreshName = "refresh";

/// Makes this machine see what others have put into the folder. A machine that has looked for a
/// file on a network file system (NFS), and found none, may go on to find none for a minute: it
/// remembers the folder. When it changes the folder itself, it looks again. Errors are ignored: in
/// a folder that cannot be written to, files of others may be seen later.
void refreshFolder(const std::filesystem::path& folder);

/// The names of what is in the folder; none of a folder that cannot be read. One look at a folder
/// takes less than one at each of its files.
std::unordered_set<std::string> namesIn(const std::filesystem::path& folder);

}  // namespace ruvex::farm
