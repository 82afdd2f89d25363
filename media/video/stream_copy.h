// Copying what a clip has beside its pictures into a video file.

#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "media/av_library.h"

namespace ruvex::media {

/// An interval of a clip. Times are the clip's time stamps in microseconds.
struct CopySource {
    std::filesystem::path path;     ///< Empty: nothing is copied.
    std::int64_t zero = 0;          ///< The time that becomes 0 in the output.
    std::int64_t from = INT64_MIN;  ///< What ends here or earlier is left out.
    std::int64_t to = INT64_MAX;    ///< What begins here or later is left out.
    bool sound = true;              ///< Whether sound is copied.
};

/// Copies audio, subtitles, chapters, attached files and cover pictures of a file into another,
/// without decoding them. Packets of audio are copied whole, so that the first may begin before
/// CopySource::from and the last may end after CopySource::to; subtitles and chapters are cut
/// there.
class StreamCopy {
public:
    /// Adds the chapters to `output`, which must outlive this object, and a stream for each stream
    /// that its container can hold. To be called before the header is written. A source that
    /// cannot be opened adds nothing. `name` is that of the output, for losses(); `frame` is the
    /// length of a frame in microseconds.
    StreamCopy(const CopySource& source, const std::string& name, std::int64_t frame,
               AVFormatContext& output);

    /// A sentence for each stream that is left out.
    const std::vector<std::string>& losses() const { return losses_; }

    /// The time of the first picture in the output, in microseconds: above 0 where sound begins
    /// more than a frame before it. Players leave out what has a time below 0.
    std::int64_t lead() const { return lead_; }

    /// Writes what begins before `time`, in microseconds since the first picture. Returns 0, or an
    /// error code of the libraries below 0.
    int writeUntil(std::int64_t time);

private:
    struct Close {
        void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    };

    void addStreams(const std::string& name);
    void addChapters(const std::string& name);
    /// Adds a stream for `from` if there is a way to hold it. Returns its index, or kNoStream.
    int add(const AVStream& from);
    int addTimed(const AVStream& from);
    int addAttachment(const AVStream& from);
    int addCover(const AVStream& from);
    /// Sets `lead_` by the earliest sound.
    void findLead(std::int64_t frame);

    /// Reads up to the next packet to copy. False at the end.
    bool fetch();
    /// Whether the packet is to be copied. Cuts subtitles to the interval.
    bool isWanted();
    /// `unit` is the time base of the packet.
    void cutSubtitle(AVRational unit);
    /// From the time stamps of a stream of the input to those of the output, in units.
    std::int64_t shiftOf(const AVStream& from, AVRational unit) const;
    /// Changes the packet's times and its stream into those of the output.
    void retime();
    int writeCovers();

    CopySource source_;
    AVFormatContext& output_;
    std::unique_ptr<AVFormatContext, Close> input_;
    AvPacket packet_;
    bool pending_ = false;          ///< Whether `packet_` is still to be written.
    std::vector<int> streams_;      ///< Index of the output's stream by that of the input's; or -1.
    std::vector<AvPacket> covers_;  ///< Cover pictures to write, with the output's stream index.
    std::vector<std::string> losses_;
    std::int64_t lead_ = 0;
};

}  // namespace ruvex::media
