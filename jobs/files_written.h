// The files that a command writes, so that none of them is one that it reads.

#pragma once

#include <filesystem>
#include <map>

#include "files/file_identity.h"
#include "jobs/frame_range.h"

namespace ruvex::jobs {

/// Existing files that will be replaced. They are compared as files, so that links, other spellings
/// of a folder and other number fields do not matter.
/// Whether the path names a numbered sequence of stills or raw frames.
bool isSequence(const std::filesystem::path& path);

class FilesWritten {
public:
    /// One file; an empty path is none.
    void add(const std::filesystem::path& file);

    /// The output of a render of these frames: a file, the files of a sequence, or "-".
    void addOutput(const std::filesystem::path& output, FrameRange frames);

    /// Throws JobError, for the output, if `file` is among them. `what` is what the command reads
    /// it as: "mask". An empty path is no file.
    void checkKept(const std::filesystem::path& file, const char* what) const;

    /// The same for the input of a render (a file, all files of a sequence, or "-") and its mask,
    /// which may be empty.
    void checkInputKept(const std::filesystem::path& input,
                        const std::filesystem::path& mask = {}) const;

private:
    using Identity = std::optional<files::FileIdentity>;

    void add(const Identity& identity, const std::filesystem::path& file);
    void check(const Identity& identity, const std::filesystem::path& file, const char* what) const;
    void checkClipKept(const std::filesystem::path& input) const;

    std::map<files::FileIdentity, std::filesystem::path> files_;
};

}  // namespace ruvex::jobs
