// Copying the audio streams of a clip into a video file.

#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "media/av_library.h"

namespace ruvex::media {

/// An interval of a clip's audio. Times are the clip's time stamps in microseconds.
struct AudioSource {
    std::filesystem::path path;     ///< Empty: no audio.
    std::int64_t zero = 0;          ///< The time that becomes 0 in the output.
    std::int64_t from = INT64_MIN;  ///< Packets that end here or earlier are left out.
    std::int64_t to = INT64_MAX;    ///< Packets that begin here or later are left out.
};

/// Copies the packets of all audio streams of a file into another, without decoding them. Packets
/// are copied whole, so that the first may begin before AudioSource::from and the last may end
/// after AudioSource::to.
class AudioCopy {
public:
    /// Adds a stream to `output`, which must outlive this object, for each audio stream that its
    /// container can hold. To be called before the header is written. A source without audio adds
    /// nothing, and so does one that cannot be opened.
    AudioCopy(const AudioSource& source, AVFormatContext& output);

    /// The codecs of the audio streams that the container cannot hold, by name.
    const std::vector<std::string>& leftOut() const { return leftOut_; }

    /// Writes the packets that begin before `time`, in microseconds of the output. Returns 0, or an
    /// error code of the libraries below 0.
    int writeUntil(std::int64_t time);

private:
    struct Close {
        void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    };

    void addStreams();
    /// Reads up to the next packet to copy. False at the end.
    bool fetch();
    /// Whether the packet is to be copied.
    bool isWanted() const;

    AudioSource source_;
    AVFormatContext& output_;
    std::unique_ptr<AVFormatContext, Close> input_;
    AvPacket packet_;
    bool pending_ = false;      ///< Whether `packet_` is still to be written.
    std::vector<int> streams_;  ///< Index of the output's stream by that of the input's; -1: none.
    std::vector<std::string> leftOut_;
};

}  // namespace ruvex::media
