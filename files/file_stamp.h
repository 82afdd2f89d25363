// Whether a file is still the one that it was.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace ruvex::files {

/// By which a changed file is noticed.
struct FileStamp {
    std::uintmax_t bytes = 0;
    /// Seconds since 1970, rounded down: machines may see the fraction of a second in other ways.
    std::int64_t modified = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Of the file that the path leads to, through links too; empty for what is not there.
std::optional<FileStamp> stampOf(const std::filesystem::path& file);

}  // namespace ruvex::files
