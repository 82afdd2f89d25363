// Decoding the pictures of a video file in display order.

#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "media/av_library.h"
#include "media/video/video_file.h"

namespace ruvex::media {

/// A video file and its decoder. All functions throw MediaError if the file cannot be read or
/// decoded.
class VideoDecoder {
public:
    /// Is shown each packet of the video that is read.
    using Watch = std::function<void(const AVPacket&)>;

    explicit VideoDecoder(const std::filesystem::path& path, FileLook look = FileLook::FirstFrames,
                          Watch watch = {});

    const AVStream& stream() const { return file_->stream(); }
    const AVFormatContext& file() const { return file_->format(); }

    /// Decodes the next picture; its `pts` is in the stream's time base, and AV_NOPTS_VALUE if it
    /// is unknown. Its range is that of the file, or of the file's format. False at the end.
    bool next(AVFrame& picture);

    /// Seeks to the key frame at or before `time`, in the stream's time base. False if the file
    /// cannot seek.
    bool seek(std::int64_t time);

    /// Opens the file again, to continue at its beginning.
    void rewind();

private:
    void openDecoder();
    /// Sends the decoder the next packet, or at the end of the file the signal to drain.
    void feed();

    std::filesystem::path path_;
    FileLook look_;
    Watch watch_;
    std::unique_ptr<VideoFile> file_;
    AvCodec codec_;
    AvPacket packet_;
    bool drained_ = false;  ///< Whether the decoder has all packets.
};

}  // namespace ruvex::media
