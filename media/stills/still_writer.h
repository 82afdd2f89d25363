// Results of one file a frame: stills and raw frames, numbered or single.

#pragma once

#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/frame_writer.h"

namespace ruvex::media {

/// Each file is complete or not there. The files of a sequence get their names one by one and stay
/// if the rest fails: a long render can be looked at early, and continued where it stopped.
class StillWriter : public FrameWriter {
public:
    StillWriter(const std::filesystem::path& path, const WriteOptions& options);

    void write(std::int64_t number, const Frame& frame) override;
    void finish() override {}

private:
    files::NumberedPath files_;
    FileKind kind_;
    WriteOptions options_;
    int written_ = 0;
};

}  // namespace ruvex::media
