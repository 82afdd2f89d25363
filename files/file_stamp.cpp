#include "files/file_stamp.h"

#include <sys/stat.h>

namespace ruvex::files {

std::optional<FileStamp> stampOf(const std::filesystem::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) return std::nullopt;
    return FileStamp{static_cast<std::uintmax_t>(status.st_size), status.st_mtime};
}

}  // namespace ruvex::files
