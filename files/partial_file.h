// A file that gets its name only when it is complete.

#pragma once

#include <cstddef>
#include <filesystem>
#include <span>

namespace ruvex::files {

/// A temporary file beside the final one, so that the last step is a rename within one file system.
/// The final name is untouched until `commit`; without a commit the temporary file is removed. A
/// link is followed: the file that it leads to is replaced, and the link stays.
class PartialFile {
public:
    /// Throws FileError if the folder does not exist or cannot be written to, and if the final name
    /// is that of something that is not a file, or of a file that may not be written.
    explicit PartialFile(const std::filesystem::path& final);
    ~PartialFile();
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;

    /// The temporary file. It exists and is empty at first.
    const std::filesystem::path& path() const { return partial_; }

    /// A descriptor of the temporary file, open for writing from its beginning. Owned by this
    /// object.
    int descriptor() const { return lock_; }

    /// Makes `bytes` the whole contents of the temporary file. Throws FileError.
    void write(std::span<const std::byte> bytes);

    /// Renames the temporary file to the final name and replaces an older file there, whose
    /// permissions it takes over. Throws FileError.
    void commit();

private:
    void keepMode() const;

    std::filesystem::path final_;
    std::filesystem::path partial_;
    int lock_ = -1;  ///< Locked as long as the temporary file is in use.
};

/// Removes the temporary files of all PartialFile objects of this process, for a program that ends
/// at once, without their destructors. May be called while other threads make or complete files.
void removeUnfinished();

/// Removes the temporary files of `final`, a file or a numbered sequence, that killed programs have
/// left behind. Files that a running program still writes are locked and stay.
void removeAbandoned(const std::filesystem::path& final);

}  // namespace ruvex::files
