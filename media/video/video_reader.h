// Reading the frames of a video file by number.

#pragma once

#include <cstdint>
#include <list>
#include <optional>

#include "media/frame_reader.h"
#include "media/pixels/orientation.h"
#include "media/pixels/yuv_convert.h"
#include "media/video/stored_table.h"
#include "media/video/video_decoder.h"
#include "media/video/video_index.h"

namespace ruvex::media {

/// The most recently used frames of a video, at most eight of them and 256 MB, but at least one.
class FrameCache {
public:
    /// The frame, or null. The pointer is valid until the next call of `keep`.
    const Frame* find(std::int64_t number);
    /// Keeps a copy, at most `most` frames with it, at least 1. The memory of older frames serves
    /// again.
    void keep(std::int64_t number, const Frame& frame, std::size_t most = kMost);

    static constexpr std::size_t kMost = 8;

    void addHeld(HeldMemory& held) const;

private:
    struct Entry {
        std::int64_t number;
        Frame frame;
    };
    std::list<Entry> entries_;  ///< The most recently used first.
};

/// Frame k is sample k of the file's VideoIndex. Frames read in order are decoded once. For others
/// decoding starts at the key frame before, so that a picture does not depend on what was read
/// before.
class VideoReader : public FrameReader {
public:
    /// Throws MediaError if the file cannot be read or its first frame cannot be decoded.
    VideoReader(const std::filesystem::path& path, const ReadOptions& options);

    const ClipInfo& info() const override { return info_; }

    /// The list of all pictures; see media/video/stored_table.h.
    std::vector<std::byte> index() const override;

private:
    bool readOwn(std::int64_t number, Frame& frame, Use use) override;
    void addHeld(HeldMemory& held) const override;
    /// Fills `info_` from the first picture.
    void describe(const AVFrame& first);
    /// Decodes the next picture. False at the end.
    bool advance();
    /// Seeks to the key frame before stored frame `number`, if decoding on does not lead there.
    void goBefore(std::int64_t number);
    void goToStart();
    /// Decodes up to stored frame `number`. False if it is not found.
    bool reach(std::int64_t number);
    /// Makes stored frame `number` the one in `picture_`; `wanted` is the number of the clip's
    /// frame, for messages. Throws MediaError.
    void decode(std::int64_t number, std::int64_t wanted);
    /// Whether the next frame of the clip is the same stored frame.
    bool isShownAgain(std::int64_t number) const;
    /// Number of the stored frame in `picture_`; kNotShown if it is not in the index.
    std::int64_t numberOfPicture() const;

    FieldOrder fieldsOf(const AVFrame& picture) const;
    /// Converts `picture_`.
    void toFrame(Frame& into);

    std::filesystem::path path_;
    std::optional<AlphaForm> alpha_;
    std::optional<FieldOrder> fields_;
    std::optional<files::FileStamp> stamp_;  ///< From before the file was opened.
    VideoIndex index_;
    VideoDecoder decoder_;
    AvFrame picture_;
    std::optional<PictureToFrame> convert_;
    Orientation orientation_;
    FrameCache cache_;
    ClipInfo info_;
    std::int64_t at_ = -1;     ///< Number of the last frame decoded; -1 after a seek or rewind.
    std::int64_t shown_ = -1;  ///< Number of the stored frame in `picture_`; kNotShown for none.
    Frame converted_;          ///< Before alpha is divided out.
    Frame straight_;           ///< Before the picture is set upright.
};

}  // namespace ruvex::media
