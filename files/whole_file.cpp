#include "files/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <unistd.h>

#include "files/file_error.h"
#include "files/partial_file.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPartOfPipe = 65536;

}  // namespace

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

std::vector<std::byte> readWhole(const fs::path& file, std::size_t most) {
    std::error_code error;
    std::ifstream stream(file, std::ios::binary);
    if (!stream || fs::is_directory(file, error)) {
        throw FileError("Cannot read " + file.string() + ": " +
                        (fs::exists(file, error) ? "it is not a readable file."
                                                 : "there is no such file. Check the name."));
    }
    // The size of a pipe is not known beforehand.
    const auto size = fs::is_regular_file(file, error) ? fs::file_size(file, error) : 0;
    std::vector<std::byte> bytes(size < most ? size + 1 : 0);
    std::size_t held = 0;
    while (stream && held <= most) {
        bytes.resize(std::max(bytes.size(), held + kPartOfPipe));
        stream.read(reinterpret_cast<char*>(bytes.data() + held),
                    static_cast<std::streamsize>(bytes.size() - held));
        held += static_cast<std::size_t>(stream.gcount());
    }
    if (held > most) {
        throw FileError("Cannot read " + file.string() + ": it is larger than " +
                        std::to_string(most >> 20) + " MB, which is too much for its kind.");
    }
    if (stream.bad() || held < size) {
        throw FileError("Cannot read " + file.string() + ": it ends before its size says.");
    }
    bytes.resize(held);
    return bytes;
}

std::string readText(const fs::path& file, std::size_t most) {
    const std::vector<std::byte> bytes = readWhole(file, most);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

}  // namespace ruvex::files
