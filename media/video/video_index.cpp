#include "media/video/video_index.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "media/media_error.h"
#include "media/video/frame_rate.h"

namespace ruvex::media {
namespace {

/// More than three days at 60 frames a second.
constexpr std::int64_t kMostSamples = std::int64_t{1} << 24;

}  // namespace

VideoIndex::VideoIndex(PictureTable table, std::optional<Rational> named)
    : table_(std::move(table)) {
    chooseRate(named);
}

void VideoIndex::startAt(std::int64_t time) {
    if (timed()) {
        const auto first =
            std::ranges::lower_bound(table_.pictures, time, {}, &ListedPicture::time);
        if (first == table_.pictures.end()) {
            throw MediaError("The video is damaged: no frame has the time of its first picture.");
        }
        first_ = static_cast<std::size_t>(first - table_.pictures.begin());
    }
    if (uneven_) {
        sample();
    }
}

std::vector<std::int64_t> VideoIndex::times() const {
    const auto frames = shown();
    std::vector<std::int64_t> times(frames.size());
    std::ranges::transform(frames, times.begin(), &ListedPicture::time);
    return times;
}

void VideoIndex::sample() {
    const std::vector<std::int64_t> shown = times();
    std::vector<std::int64_t> places = placesOf({shown, table_.unit}, rate_);
    const double seconds =
        static_cast<double>(shown.back() - shown.front() + table_.pictures.back().duration) *
        table_.unit.value();
    const double end =
        std::max(std::round(seconds * rate_.value()), static_cast<double>(places.back() + 1));
    if (end > static_cast<double>(kMostSamples)) {
        throw MediaError(
            "The video is too long for its frame rate. Convert it to a constant frame rate first.");
    }
    places.push_back(static_cast<std::int64_t>(end));
    samples_.assign(static_cast<std::size_t>(end), 0);
    leftOut_ = 0;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        leftOut_ += places[i] == places[i + 1] ? 1 : 0;
        std::fill(samples_.begin() + places[i], samples_.begin() + places[i + 1],
                  static_cast<std::int64_t>(i));
    }
}

void VideoIndex::chooseRate(std::optional<Rational> named) {
    if (!timed()) {
        rate_ = table_.declared.empty() ? rate_ : table_.declared.front();
        return;
    }
    const std::vector<std::int64_t> shown = times();
    const FrameRate chosen = chooseFrameRate({shown, table_.unit}, table_.declared);
    uneven_ = chosen.uneven;
    rate_ = uneven_ ? named.value_or(chosen.rate) : chosen.rate;
    if (uneven_) {
        sample();
    }
}

std::optional<std::int64_t> VideoIndex::numberAt(std::int64_t time) const {
    const auto frames = shown();
    const auto found = std::ranges::lower_bound(frames, time, {}, &ListedPicture::time);
    if (found == frames.end() || found->time != time) {
        return std::nullopt;
    }
    return found - frames.begin();
}

std::int64_t VideoIndex::timeOf(std::int64_t number) const {
    return shown()[static_cast<std::size_t>(number)].time;
}

std::int64_t VideoIndex::keyBefore(std::int64_t number) const {
    const auto frames = shown();
    while (number > 0 && !frames[static_cast<std::size_t>(number)].key) {
        --number;
    }
    return number;
}

}  // namespace ruvex::media
