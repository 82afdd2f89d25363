// The sound of a clip as PCM of 48 kHz in another file.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "media/av_functions.h"
#include "media/sound/pcm_track.h"
#include "media/video/stream_copy.h"

namespace ruvex::media {

/// Decodes all audio of a file and writes it as PCM, in step with the pictures: from the first
/// picture on to the end of the last, with silence where the clip has no sound.
class PcmSound {
public:
    /// Adds a stream to `output`, which has to outlive this object, for each audio stream that can
    /// be decoded; none for a source without a path, without sound, or that cannot be opened. To be
    /// called before the header is written. `name` is that of the output, for remarks().
    PcmSound(const CopySource& source, const std::string& name, AVFormatContext& output);

    /// A sentence for each stream that is converted or left out.
    const std::vector<std::string>& remarks() const { return remarks_; }

    /// Writes the sound up to `time`, in microseconds since the first picture. Returns 0, or an
    /// error code of the libraries below 0.
    int writeUntil(std::int64_t time);

private:
    struct Close {
        void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    };
    struct Output {
        int stream;  ///< Index in the output.
        std::unique_ptr<PcmTrack> track;
    };

    void addTracks(const std::string& name);
    /// Adds a stream for the track, and a remark if its sound is converted.
    Output addTrack(const AVStream& from, std::unique_ptr<PcmTrack> track, const std::string& name);
    /// Decodes until all tracks reach the position, or one of them is far beyond it.
    void decodeUntil(std::int64_t position);
    /// Reads and decodes a packet. False at the end of the file.
    bool decodeNext();
    int write(Output& output, std::int64_t position);

    CopySource source_;
    AVFormatContext& output_;
    std::unique_ptr<AVFormatContext, Close> input_;
    AvPacket packet_;
    bool ended_ = false;          ///< Whether the input is read to its end.
    std::vector<Output> tracks_;  ///< By the index of the input's stream; null tracks for others.
    std::vector<std::string> remarks_;
};

}  // namespace ruvex::media
