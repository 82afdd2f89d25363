// Clips of one file a frame: stills and raw frames, numbered or single.

#pragma once

#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/frame_reader.h"

namespace ruvex::media {

class StillReader : public FrameReader {
public:
    /// `path` is a pattern, or a single file that counts as frame 0. Throws MediaError if there is
    /// no such file, or if raw frames come without a size.
    StillReader(const std::filesystem::path& path, const ReadOptions& options);

    const ClipInfo& info() const override { return info_; }

private:
    bool readOwn(std::int64_t number, Frame& frame) override;
    void openRaw(std::optional<FrameSize> size, Depth depth);
    void openStill();

    std::optional<AlphaForm> alpha_;
    files::NumberedPath files_;
    FileKind kind_;
    ClipInfo info_;
};

}  // namespace ruvex::media
