// The sound of a clip, carried over as it is.

#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "media/av_library.h"

namespace ruvex::media {

/// A stretch of a clip's sound, in microseconds on the clip's own clock.
struct AudioSource {
    std::filesystem::path path;  ///< Empty: no sound.
    std::int64_t zero = 0;       ///< The time that becomes 0.
    std::int64_t from = INT64_MIN;
    std::int64_t to = INT64_MAX;  ///< Packets that begin here or later are left out.
};

/// Copies the packets of all audio streams of one file into another, without decoding them. Cut at
/// whole packets.
class AudioCopy {
public:
    /// Adds a stream to `output` for each audio stream that its container can hold. A file without
    /// sound, or none at all, is nothing to object to.
    AudioCopy(const AudioSource& source, AVFormatContext& output);

    /// Codings that the container cannot hold, by name.
    const std::vector<std::string>& leftOut() const { return leftOut_; }

    /// Writes the packets up to a time, in microseconds after the result's 0. A code of the
    /// libraries, below 0 on failure.
    int writeUntil(std::int64_t time);

private:
    struct Close {
        void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    };

    void addStreams();
    bool fetch();
    bool isWanted() const;

    AudioSource source_;
    AVFormatContext& output_;
    std::unique_ptr<AVFormatContext, Close> input_;
    AvPacket packet_;
    bool waiting_ = false;      ///< Whether the packet is still to be written.
    std::vector<int> streams_;  ///< The output's stream for each of the input's; -1 for none.
    std::vector<std::string> leftOut_;
};

}  // namespace ruvex::media
