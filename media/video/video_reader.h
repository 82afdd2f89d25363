// A video as frames by number.

#pragma once

#include <cstdint>
#include <list>
#include <optional>

#include "media/frame_reader.h"
#include "media/pixels/orientation.h"
#include "media/pixels/yuv_convert.h"
#include "media/video/video_decoder.h"
#include "media/video/video_index.h"

namespace ruvex::media {

/// The most recently used frames of a video, at most eight of them and 256 MB, but at least one.
class FrameCache {
public:
    /// The frame, or null. The pointer is valid until the next call of `keep`.
    const Frame* find(std::int64_t number);
    void keep(std::int64_t number, Frame frame);

private:
    struct Entry {
        std::int64_t number;
        Frame frame;
    };
    std::list<Entry> entries_;  ///< The most recently used first.
};

/// Frame k is the k-th picture that is shown. Frames in turn are decoded once; for others the way
/// leads from the key frame before, so that the picture is the same whichever way it is reached.
class VideoReader : public FrameReader {
public:
    /// Throws MediaError.
    VideoReader(const std::filesystem::path& path, const ReadOptions& options);

    const ClipInfo& info() const override { return info_; }

private:
    bool readOwn(std::int64_t number, Frame& frame) override;
    void describe(const AVFrame& first);
    /// Decodes one more picture and keeps it if it has a number from `from` on. False at the end.
    bool advance(std::int64_t from);
    void goBefore(std::int64_t number);
    void goToStart();
    /// Decodes on to a frame ahead. Null if it does not come.
    const Frame* reach(std::int64_t number);
    /// A frame of the clip, wherever the decoder stands. It lives until the next one is decoded.
    const Frame& find(std::int64_t number);
    std::int64_t numberOfPicture() const;

    FieldOrder fieldsOf(const AVFrame& picture) const;
    Frame toFrame();

    std::filesystem::path path_;
    std::optional<AlphaForm> alpha_;
    std::optional<FieldOrder> fields_;
    VideoIndex index_;
    VideoDecoder decoder_;
    AvFrame picture_;
    std::optional<PictureToFrame> convert_;
    Orientation orientation_;
    FrameCache cache_;
    ClipInfo info_;
    std::int64_t at_ = -1;  ///< The picture that was decoded last; -1 at the beginning.
};

}  // namespace ruvex::media
