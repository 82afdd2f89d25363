// Reading the packets of a video file.

#pragma once

#include <filesystem>
#include <memory>

#include "media/av_library.h"

namespace ruvex::media {

/// How much of a file is read to tell what it holds: its first frames too, which takes any file and
/// the time to decode them, or its header alone, for files that this program has written.
enum class FileLook { FirstFrames, Header };

/// A file and its video stream, as findVideo chooses it; other streams are skipped.
class VideoFile {
public:
    /// Throws MediaError if the file cannot be opened or has no video.
    explicit VideoFile(const std::filesystem::path& path, FileLook look = FileLook::FirstFrames);

    AVFormatContext& format() const { return *format_; }
    AVStream& stream() const { return *format_->streams[stream_]; }

    /// Reads the next packet of the video stream; false at the end of the file. Packets marked as
    /// not to be shown are included, since the decoder needs them. Throws MediaError if the file is
    /// cut off.
    bool next(AVPacket& packet);

    /// Seeks to the key frame at or before `time`, in the stream's time base. False on failure.
    bool seek(std::int64_t time);

private:
    struct Close {
        void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    };

    std::filesystem::path path_;
    std::unique_ptr<AVFormatContext, Close> format_;
    int stream_ = -1;
};

/// Whether a video stream is a cover picture or a picture of a chapter.
bool isCover(const AVStream& stream);

/// The index of the video stream to render: the one that the FFmpeg libraries call the best, but no
/// cover picture. Below 0 if there is none.
int findVideo(AVFormatContext& format);

/// Whether a file is shorter than its container says; see media/video/container_end.h.
bool isCutOff(const std::filesystem::path& path, const AVFormatContext& format,
              std::uint64_t frameBytes = 0);

/// The message for a file that ends before its last frame.
std::string cutOff(const std::filesystem::path& path);

}  // namespace ruvex::media
