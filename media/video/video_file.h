// A video file opened for its packets.

#pragma once

#include <filesystem>
#include <memory>

#include "media/av_library.h"

namespace ruvex::media {

/// The file, its best video stream chosen and all others left out. Throws MediaError if it cannot
/// be opened or holds no video.
class VideoFile {
public:
    explicit VideoFile(const std::filesystem::path& path);

    AVFormatContext& format() const { return *format_; }
    AVStream& stream() const { return *format_->streams[stream_]; }

    /// The next packet of the video stream; false at the end of the file. Packets that the file
    /// marks as not to be shown are delivered too: the decoder needs them. Throws MediaError where
    /// the file breaks off.
    bool next(AVPacket& packet);

    /// Moves to the key frame at or before a time in the stream's units. False if it cannot.
    bool seek(std::int64_t time);

private:
    struct Close {
        void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    };

    std::filesystem::path path_;
    std::unique_ptr<AVFormatContext, Close> format_;
    int stream_ = -1;
};

/// The sentence for a file that ends before its contents do.
std::string cutOff(const std::filesystem::path& path);

}  // namespace ruvex::media
