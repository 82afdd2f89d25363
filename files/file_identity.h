// Which file a path leads to, whatever its spelling.

#pragma once

#include <compare>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace ruvex::files {

/// Two paths with equal identities lead to one file.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

/// Of the regular file that the path leads to, through links too; empty if there is none. "-" has
/// none: a stream is not known by a path.
std::optional<FileIdentity> identityOf(const std::filesystem::path& path);

/// Of the regular file that the descriptor is open on, as of a standard stream that the shell has
/// redirected; empty for pipes and terminals.
std::optional<FileIdentity> identityOf(int descriptor);

}  // namespace ruvex::files
