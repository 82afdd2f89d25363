// The frames of a video in display order, with their times and key frames.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "media/rational.h"
#include "media/video/picture_table.h"

namespace ruvex::media {

/// Built from a list of all packets of the file. This gives the exact number of frames, and each
/// frame the same number after a seek as without. Times are in the stream's time base.
///
/// A video of variable frame rate is resampled to a constant rate: each sample is the stored frame
/// that is shown at its time. Otherwise samples are the stored frames.
class VideoIndex {
public:
    /// A video of variable frame rate is resampled to the rate `named`, or else to one that
    /// chooseFrameRate finds. Throws MediaError if there are too many samples.
    explicit VideoIndex(PictureTable table, std::optional<Rational> named = {});

    /// The list of all pictures.
    const PictureTable& table() const { return table_; }

    /// The number of samples.
    std::int64_t count() const {
        return static_cast<std::int64_t>(uneven_ ? samples_.size() : shown().size());
    }
    /// Samples a second.
    const Rational& rate() const { return rate_; }

    /// Whether the frame rate varies.
    bool uneven() const { return uneven_; }

    /// The number of stored frames.
    std::int64_t pictures() const { return static_cast<std::int64_t>(shown().size()); }
    /// The number of stored frames that no sample shows, because the next one has the same place.
    std::int64_t leftOut() const { return leftOut_; }

    /// The number of the stored frame that is shown as `sample`, 0 to count() - 1.
    std::int64_t shownAs(std::int64_t sample) const {
        return uneven_ ? samples_[static_cast<std::size_t>(sample)] : sample;
    }

    /// Whether each frame has a distinct time. If not, frames can only be counted from the start of
    /// the file, without seeking.
    bool timed() const { return table_.timed; }

    /// Removes the frames before `time`, the first picture that can be decoded: recordings may
    /// begin in the middle of a group of pictures. Throws MediaError if there is no other.
    void startAt(std::int64_t time);

    /// The number of the stored frame with exactly this time; empty if there is none.
    std::optional<std::int64_t> numberAt(std::int64_t time) const;
    /// The time of a stored frame.
    std::int64_t timeOf(std::int64_t number) const;
    /// The last key frame at or before stored frame `number`; 0 if there is none.
    std::int64_t keyBefore(std::int64_t number) const;

private:
    void chooseRate(std::optional<Rational> named);
    /// The frames from the first that can be decoded.
    std::span<const ListedPicture> shown() const {
        return std::span(table_.pictures).subspan(first_);
    }
    /// Fills `samples_`: each frame from the sample nearest to its time until the next frame's.
    void sample();
    std::vector<std::int64_t> times() const;

    PictureTable table_;
    std::size_t first_ = 0;  ///< Pictures of the table that cannot be decoded.
    Rational rate_{25, 1};
    bool uneven_ = false;
    std::int64_t leftOut_ = 0;           ///< Stored frames without a sample.
    std::vector<std::int64_t> samples_;  ///< Numbers of stored frames, if uneven.
};

}  // namespace ruvex::media
