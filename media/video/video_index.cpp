#include "media/video/video_index.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "media/av_library.h"
#include "media/media_error.h"
#include "media/video/frame_rate.h"

namespace ruvex::media {
namespace {

/// The relative difference below which two rates count as the same: containers with a coarse time
/// base store 30000/1001 as a fraction close to it.
constexpr double kSameRate = 2e-7;
/// More than three days at 60 frames a second.
constexpr std::int64_t kMostSamples = std::int64_t{1} << 24;

/// The whole rate, or the whole rate times 1000/1001, that is the same as `rate`; else `rate`.
Rational standardRate(const Rational& rate) {
    const auto near = [&rate](std::int64_t num, std::int64_t den) {
        const double standard = static_cast<double>(num) / static_cast<double>(den);
        return std::abs(rate.value() / standard - 1.0) < kSameRate;
    };
    const auto whole = static_cast<std::int64_t>(std::llround(rate.value()));
    if (whole > 0 && near(whole, 1)) {
        return {whole, 1};
    }
    return whole > 0 && near(whole * 1000, 1001) ? makeRational(whole * 1000, 1001) : rate;
}

std::optional<Rational> rateFrom(const AVRational& rate) {
    if (rate.num <= 0 || rate.den <= 0) {
        return std::nullopt;
    }
    return standardRate(makeRational(rate.num, rate.den));
}

/// The rates that the container names. The average is wrong if the last frame lasts longer; the
/// base rate counts fields in some files and is far too high for a variable frame rate.
std::vector<Rational> declaredRates(const AVStream& stream) {
    std::vector<Rational> rates;
    for (const auto& rate : {rateFrom(stream.avg_frame_rate), rateFrom(stream.r_frame_rate)}) {
        if (rate) {
            rates.push_back(*rate);
        }
    }
    return rates;
}

/// Whether a packet is marked as damaged. The mark is ignored for MPEG transport streams, where any
/// wrong continuity counter sets it, even if no picture is harmed.
bool marksDamage(const AVFormatContext& format, const AVPacket& packet) {
    return (packet.flags & AV_PKT_FLAG_CORRUPT) != 0 &&
           std::string_view(format.iformat->name) != "mpegts";
}

/// Whether packets have no display times: AVI only counts packets, and the libraries would invent
/// times for reordered frames.
bool lacksTimes(const VideoFile& file) {
    return std::string_view(file.format().iformat->name) == "avi" &&
           file.stream().codecpar->video_delay > 0;
}

/// Whether the libraries have reported that the file ends too early.
bool isEndReported() {
    return takeLibraryError().find("prematurely") != std::string::npos;
}

}  // namespace

VideoIndex::VideoIndex(const std::filesystem::path& path, std::optional<Rational> named) {
    VideoFile file(path);
    takeLibraryError();
    timed_ = !lacksTimes(file);
    collect(file, path);
    if (frames_.empty()) {
        throw MediaError("Cannot read " + path.string() + ": its video has no frames.");
    }
    if (timed_) {
        std::sort(frames_.begin(), frames_.end(),
                  [](const Shown& a, const Shown& b) { return a.time < b.time; });
        timed_ =
            std::adjacent_find(frames_.begin(), frames_.end(), [](const Shown& a, const Shown& b) {
                return a.time == b.time;
            }) == frames_.end();
    }
    chooseRate(file.stream(), named);
}

void VideoIndex::collect(VideoFile& file, const std::filesystem::path& path) {
    const AvPacket packet = newAvPacket();
    int packets = 0;
    std::uint64_t frameBytes = 0;
    bool damaged = false;
    for (; file.next(*packet); ++packets) {
        frameBytes = static_cast<std::uint64_t>(packet->size);
        damaged = damaged || marksDamage(file.format(), *packet);
        if ((packet->flags & AV_PKT_FLAG_DISCARD) == 0) {
            timed_ = timed_ && packet->pts != AV_NOPTS_VALUE;
            frames_.push_back(
                {packet->pts, packet->duration, (packet->flags & AV_PKT_FLAG_KEY) != 0});
        }
    }
    // A file that is cut off shows differently by container: by lengths that reach beyond its end,
    // an index of more frames than there are, or only a message.
    const bool missing = packets < avformat_index_get_entries_count(&file.stream());
    if (damaged || missing || isCutOff(path, file.format(), frameBytes) || isEndReported()) {
        throw MediaError(cutOff(path));
    }
}

void VideoIndex::startAt(std::int64_t time) {
    if (timed_) {
        std::erase_if(frames_, [time](const Shown& frame) { return frame.time < time; });
    }
    if (uneven_) {
        sample();
    }
}

std::vector<std::int64_t> VideoIndex::times() const {
    std::vector<std::int64_t> times(frames_.size());
    std::transform(frames_.begin(), frames_.end(), times.begin(),
                   [](const Shown& frame) { return frame.time; });
    return times;
}

void VideoIndex::sample() {
    const std::vector<std::int64_t> shown = times();
    std::vector<std::int64_t> places = placesOf({shown, unit_}, rate_);
    const double seconds =
        static_cast<double>(shown.back() - shown.front() + frames_.back().duration) * unit_.value();
    const double end =
        std::max(std::round(seconds * rate_.value()), static_cast<double>(places.back() + 1));
    if (end > static_cast<double>(kMostSamples)) {
        throw MediaError(
            "The video is too long for its frame rate. Convert it to a constant frame rate first.");
    }
    places.push_back(static_cast<std::int64_t>(end));
    samples_.assign(static_cast<std::size_t>(end), 0);
    leftOut_ = 0;
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        leftOut_ += places[i] == places[i + 1] ? 1 : 0;
        std::fill(samples_.begin() + places[i], samples_.begin() + places[i + 1],
                  static_cast<std::int64_t>(i));
    }
}

void VideoIndex::chooseRate(const AVStream& stream, std::optional<Rational> named) {
    const std::vector<Rational> declared = declaredRates(stream);
    if (!timed_) {
        rate_ = declared.empty() ? rate_ : declared.front();
        return;
    }
    unit_ = makeRational(stream.time_base.num, stream.time_base.den);
    const std::vector<std::int64_t> shown = times();
    const FrameRate chosen = chooseFrameRate({shown, unit_}, declared);
    uneven_ = chosen.uneven;
    rate_ = uneven_ ? named.value_or(chosen.rate) : chosen.rate;
    if (uneven_) {
        sample();
    }
}

std::optional<std::int64_t> VideoIndex::numberAt(std::int64_t time) const {
    const auto found = std::lower_bound(
        frames_.begin(), frames_.end(), time,
        [](const Shown& frame, std::int64_t wanted) { return frame.time < wanted; });
    if (found == frames_.end() || found->time != time) {
        return std::nullopt;
    }
    return found - frames_.begin();
}

std::int64_t VideoIndex::timeOf(std::int64_t number) const {
    return frames_[static_cast<std::size_t>(number)].time;
}

std::int64_t VideoIndex::keyBefore(std::int64_t number) const {
    while (number > 0 && !frames_[static_cast<std::size_t>(number)].key) {
        --number;
    }
    return number;
}

}  // namespace ruvex::media
