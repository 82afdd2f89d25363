// Reading clips of one file for each frame: stills and raw frames.

#pragma once

#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/frame_reader.h"

namespace ruvex::media {

class StillReader : public FrameReader {
public:
    /// `path` is a pattern of numbered files, or a single file, which is frame 0. Throws MediaError
    /// if there is no such file, or if `options` lack the size of raw frames.
    StillReader(const std::filesystem::path& path, const ReadOptions& options);

    const ClipInfo& info() const override { return info_; }

private:
    bool readOwn(std::int64_t number, Frame& frame, Use use) override;
    void openRaw(std::optional<FrameSize> size, Depth depth);
    void openStill();
    void addHeld(HeldMemory& held) const override;

    std::optional<AlphaForm> alpha_;
    files::NumberedPath files_;
    FileKind kind_;
    ClipInfo info_;
    /// The first picture, which was read for `info_`, until it is asked for; empty if frames are of
    /// another depth.
    Frame first_;
};

}  // namespace ruvex::media
