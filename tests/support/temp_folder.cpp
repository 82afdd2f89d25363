#include "tests/support/temp_folder.h"

#include <algorithm>
#include <stdexcept>
#include <stdlib.h>

namespace ruvex::files {

TempFolder::TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "ruvex-media-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    path_ = name;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> TempFolder::names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace ruvex::files
