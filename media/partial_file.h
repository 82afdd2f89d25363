// A file that gets its name only when it is complete.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace ruvex::media {

/// Owns a temporary name beside a final one, so that the last step is a rename within one file
/// system. Until `commit` the final name is untouched; without it the temporary file is removed.
class PartialFile {
public:
    /// Throws MediaError if the folder is not there or takes no file.
    explicit PartialFile(const std::filesystem::path& final);
    ~PartialFile();
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;

    /// Where to write meanwhile. The file exists and is empty.
    const std::filesystem::path& path() const { return partial_; }

    /// The temporary file, open for writing from its beginning; it stays this object's.
    int descriptor() const { return lock_; }

    /// Writes all of it to the temporary file. Throws MediaError, a full disk included.
    void write(std::span<const std::byte> bytes);

    /// Gives the file its name; an older file of that name goes. Throws MediaError.
    void commit();

private:
    std::filesystem::path final_;
    std::filesystem::path partial_;
    int lock_ = -1;  ///< Held as long as the temporary name is in use.
};

/// Removes the temporary files that programs which were killed have left of `final`, a file or a
/// numbered sequence. Those that a running program still writes stay, on other machines too.
void removeAbandoned(const std::filesystem::path& final);

/// The sentence for a failed write: `code` is an errno. A full disk gets words of its own.
std::string writeFailure(const std::filesystem::path& file, int code);

/// All of it to a file descriptor; 0, or the errno of what failed.
int writeAll(int descriptor, std::span<const std::byte> bytes);

/// The whole of it into a file, complete or not at all.
void writeWhole(const std::filesystem::path& file, std::span<const std::byte> bytes);

/// The whole of a file, or what a pipe holds up to its end. Throws MediaError if it cannot be read,
/// and for more than `most` bytes, of which it then has read no more.
std::vector<std::byte> readWhole(const std::filesystem::path& file,
                                 std::size_t most = SIZE_MAX / 2);

}  // namespace ruvex::media
