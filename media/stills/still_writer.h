// Writing one file for each frame: stills and raw frames.

#pragma once

#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/frame_writer.h"

namespace ruvex::media {

/// Each file of a sequence appears when it is complete, and remains if a later one fails: a long
/// render can be viewed while it runs, and resumed where it stopped.
class StillWriter : public FrameWriter {
public:
    /// `path` is a pattern of numbered files, or a single file, which takes one frame only. Throws
    /// MediaError on a size that checkFrameSize refuses.
    StillWriter(const std::filesystem::path& path, const WriteOptions& options);

    void write(std::int64_t number, const Frame& frame) override;
    void finish() override {}

private:
    files::NumberedPath files_;
    FileKind kind_;
    WriteOptions options_;
    int count_ = 0;  ///< Frames written so far.
};

}  // namespace ruvex::media
