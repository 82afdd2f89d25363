#include "farm/fresh_folder.h"

#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include "files/partial_name.h"

namespace ruvex::farm {

void refreshFolder(const std::filesystem::path& folder) {
    const std::filesystem::path file = files::partialName(folder / kRefreshName);
    const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0) return;
    close(descriptor);
    unlink(file.c_str());
}

std::unordered_set<std::string> namesIn(const std::filesystem::path& folder) {
    std::unordered_set<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        names.insert(entry->path().filename().string());
    }
    return names;
}

}  // namespace ruvex::farm
