// Writing files in one piece.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace ruvex::files {

/// The message for a failed write to `file`; `code` is an errno.
std::string writeFailure(const std::filesystem::path& file, int code);

/// Writes all of `bytes` to a file descriptor. Returns 0, or the errno of the failure.
int writeAll(int descriptor, std::span<const std::byte> bytes);

/// Writes a file that is either complete or not there. Throws FileError.
void writeWhole(const std::filesystem::path& file, std::span<const std::byte> bytes);

/// The folder that a file lies in; "." for a name without one.
std::filesystem::path folderOf(const std::filesystem::path& file);

}  // namespace ruvex::files
