#include "farm/absolute_name.h"

#include <system_error>

namespace ruvex::farm {

namespace fs = std::filesystem;

fs::path absoluteName(const fs::path& path) {
    fs::path name;
    std::error_code ignored;
    for (const fs::path& part : fs::absolute(path)) {
        if (part.empty() || part == ".") continue;
        const bool cancels = part == ".." && name.filename() != ".." &&
                             fs::is_directory(fs::symlink_status(name, ignored));
        if (cancels) {
            name = name.parent_path();
        } else {
            name /= part;
        }
    }
    return name;
}

}  // namespace ruvex::farm
