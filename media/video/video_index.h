// The frames of a video in the order in which they are shown.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "media/rational.h"
#include "media/video/video_file.h"

namespace ruvex::media {

/// Made by one look through the whole file, without decoding: only so is the number of frames
/// exact and a frame's number the same whichever way it is reached.
class VideoIndex {
public:
    /// Throws MediaError if the file breaks off or holds no frame.
    explicit VideoIndex(const std::filesystem::path& path);

    /// Frames at the constant rate: those that there are, or, where these are uneven, as many as
    /// their time takes.
    std::int64_t count() const {
        return static_cast<std::int64_t>(uneven_ ? samples_.size() : frames_.size());
    }
    const Rational& rate() const { return rate_; }

    /// Whether the frames do not keep to one rate.
    bool uneven() const { return uneven_; }

    /// The number, among those that there are, of the frame that is shown as frame `sample` at the
    /// constant rate.
    std::int64_t shownAs(std::int64_t sample) const {
        return uneven_ ? samples_[static_cast<std::size_t>(sample)] : sample;
    }

    /// Whether each frame has a time of its own. Without, frames are told apart by counting alone,
    /// and the way to an earlier one is from the start.
    bool timed() const { return timed_; }

    /// Leaves out the frames before `time`, for a decoder that could not make them out of what
    /// the file holds: recordings begin in the middle of a group of pictures.
    void startAt(std::int64_t time);

    /// The number of the frame shown at a time in the stream's units; nothing if none is.
    std::optional<std::int64_t> numberAt(std::int64_t time) const;
    std::int64_t timeOf(std::int64_t number) const;
    /// The last key frame at or before `number`; 0 if there is none.
    std::int64_t keyBefore(std::int64_t number) const;

private:
    struct Shown {
        std::int64_t time;
        std::int64_t duration;
        bool key;
    };

    void collect(VideoFile& file, const std::filesystem::path& path);
    void chooseRate(const AVStream& stream);
    /// Finds for each time of the constant rate the frame that is nearest or before.
    void sample();
    bool liesOnGrid(const Rational& rate, const AVRational& unit) const;

    std::vector<Shown> frames_;
    Rational rate_{25, 1};
    bool timed_ = true;
    bool uneven_ = false;
    double framesPerUnit_ = 0;  ///< At the rate, for a unit of the stream's time.
    std::vector<std::int64_t> samples_;
};

}  // namespace ruvex::media
