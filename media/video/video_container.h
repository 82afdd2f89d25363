// The file around coded pictures: its streams, times and tags.

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/partial_file.h"
#include "media/av_library.h"
#include "media/frame_writer.h"
#include "media/sound/pcm_sound.h"
#include "media/video/stream_copy.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// Whether files of this extension hold the codec's headers outside of the packets.
bool needsGlobalHeader(const std::filesystem::path& path);

/// Writes coded pictures, and what the source of the options has beside its pictures, into a
/// container of the file's extension. The file gets its name when it is complete. All functions
/// throw MediaError, and files::FileError.
class VideoContainer {
public:
    /// Writes the header. `coder` describes the pictures; it is not kept.
    VideoContainer(const std::filesystem::path& path, const VideoCodec& codec,
                   const AVCodecContext& coder, const WriteOptions& options);

    /// Writes the next packet in decoding order, and what belongs beside as many frames as there
    /// are packets now: so the order in the file does not depend on how many frames the encoder
    /// holds back. Its times count frames. Takes its contents.
    void write(AVPacket& packet);

    /// Completes the file, which has to have this many frames: throws if there were more packets or
    /// fewer.
    void finish(std::int64_t frames);

    /// What the file lacks.
    std::vector<std::string> remarks() const;

private:
    void addPictures(const VideoCodec& codec, const AVCodecContext& coder,
                     const WriteOptions& options);
    void addBeside(CopySource source);
    /// Writes what belongs to the time before frame `frames` beside the pictures.
    void writeBeside(std::int64_t frames);
    /// Microseconds from the first picture to frame `frames`.
    std::int64_t timeOf(std::int64_t frames) const;
    void check(int code) const;

    struct Close {
        void operator()(AVFormatContext* format) const {
            avio_closep(&format->pb);
            avformat_free_context(format);
        }
    };

    std::filesystem::path path_;
    AVRational frame_;  ///< Seconds.
    files::PartialFile file_;
    std::unique_ptr<AVFormatContext, Close> format_;
    std::optional<StreamCopy> copy_;
    std::optional<PcmSound> sound_;  ///< For MXF, into which sound is not copied.
    std::int64_t packets_ = 0;       ///< Of pictures, that were written.
};

}  // namespace ruvex::media
