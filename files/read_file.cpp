#include "files/read_file.h"

#include <algorithm>
#include <fstream>

#include "files/file_error.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPartOfPipe = 65536;

}  // namespace

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

}  // namespace ruvex::files
