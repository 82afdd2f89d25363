// Reading files in one piece.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace ruvex::files {

/// The contents of a file, or of a pipe up to its end. Throws FileError if it cannot be read or has
/// more than `most` bytes; no more than those are read.
std::vector<std::byte> readWhole(const std::filesystem::path& file,
                                 std::size_t most = SIZE_MAX / 2);

/// The same as text.
std::string readText(const std::filesystem::path& file, std::size_t most = SIZE_MAX / 2);

}  // namespace ruvex::files
