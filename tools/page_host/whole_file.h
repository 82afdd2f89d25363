// Files that appear whole or not at all.

#pragma once

#include <filesystem>
#include <functional>

namespace ruvex::page_host {

/// Has `write` make a file with the name of `file` and ".new" behind it, and renames it to `file`,
/// which is replaced. After a failure `file` is as before, and there is no other one. Passes on
/// what `write` throws; throws runtime::Error if the file can't be renamed.
void writeWholeFile(const std::filesystem::path& file,
                    const std::function<void(const std::filesystem::path& unfinished)>& write);

}  // namespace ruvex::page_host
