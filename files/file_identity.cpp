#include "files/file_identity.h"

#include <sys/stat.h>

namespace ruvex::files {
namespace {

std::optional<FileIdentity> identityIn(const struct stat& status) {
    if (!S_ISREG(status.st_mode)) return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

}  // namespace

std::optional<FileIdentity> identityOf(const std::filesystem::path& path) {
    struct stat status {};
    if (path == "-" || stat(path.c_str(), &status) != 0) return std::nullopt;
    return identityIn(status);
}

std::optional<FileIdentity> identityOf(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return std::nullopt;
    return identityIn(status);
}

}  // namespace ruvex::files
