#include "files/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

#include "files/file_error.h"
#include "files/partial_file.h"

namespace ruvex::files {

namespace fs = std::filesystem;

int writeAll(int descriptor, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return 0;
}

std::string writeFailure(const fs::path& file, int code) {
    const std::string start = "Cannot write " + file.string() + ": ";
    if (code == ENOSPC || code == EDQUOT) {
        return start + "the disk is full. Free some space, or write to another disk.";
    }
    if (code == EFBIG) {
        return start + "the file would be larger than is allowed there.";
    }
    if (code == ENOENT || code == ENOTDIR) {
        return start + "the folder does not exist. Make it first.";
    }
    return start + std::strerror(code) + ".";
}

void writeWhole(const fs::path& file, std::span<const std::byte> bytes) {
    PartialFile partial(file);
    partial.write(bytes);
    partial.commit();
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

}  // namespace ruvex::files
