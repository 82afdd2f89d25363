// The pictures of a video file in the order in which they are shown, forwards.

#pragma once

#include <filesystem>
#include <memory>

#include "media/av_library.h"
#include "media/video/video_file.h"

namespace ruvex::media {

/// A file and its decoder. Throws MediaError where something cannot be decoded.
class VideoDecoder {
public:
    explicit VideoDecoder(const std::filesystem::path& path);

    const AVStream& stream() const { return file_->stream(); }
    const AVFormatContext& file() const { return file_->format(); }

    /// The next picture; its `pts` is its time in the stream's units. False at the end.
    bool next(AVFrame& picture);

    /// Continues at the key frame at or before `time`. False if the file cannot be searched.
    bool seek(std::int64_t time);

    /// Continues at the beginning.
    void rewind();

private:
    void openDecoder();
    /// Hands the decoder one more packet, or the news that there are none.
    void feed();

    std::filesystem::path path_;
    std::unique_ptr<VideoFile> file_;
    AvCodec codec_;
    AvPacket packet_;
    bool drained_ = false;
};

}  // namespace ruvex::media
