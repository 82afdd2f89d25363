#include "farm/absolute_name.h"

namespace ruvex::farm {

std::filesystem::path absoluteName(const std::filesystem::path& path) {
    std::filesystem::path name;
    for (const std::filesystem::path& part : std::filesystem::absolute(path)) {
        if (!part.empty() && part != ".") name /= part;
    }
    return name;
}

}  // namespace ruvex::farm
