#include "media/video/video_index.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "media/av_library.h"
#include "media/media_error.h"

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

/// The rate to which a video of variable frame rate is resampled: the lowest common rate of at
/// least 99 % of its average, so that about one frame in a hundred may be skipped but not more.
/// Above all common rates it is the average, rounded up.
Rational commonRate(const Rational& average) {
    constexpr double kLeastShare = 0.99;
    constexpr Rational kRates[] = {{24000, 1001}, {24, 1}, {25, 1},       {30000, 1001}, {30, 1},
                                   {48, 1},       {50, 1}, {60000, 1001}, {60, 1}};
    for (const Rational& rate : kRates) {
        if (rate.value() >= average.value() * kLeastShare) {
            return rate;
        }
    }
    return {static_cast<std::int64_t>(std::ceil(average.value())), 1};
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

VideoIndex::VideoIndex(const std::filesystem::path& path) {
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
    chooseRate(file.stream());
}

void VideoIndex::collect(VideoFile& file, const std::filesystem::path& path) {
    const AvPacket packet = newAvPacket();
    int packets = 0;
    bool damaged = false;
    for (; file.next(*packet); ++packets) {
        damaged = damaged || marksDamage(file.format(), *packet);
        if ((packet->flags & AV_PKT_FLAG_DISCARD) == 0) {
            timed_ = timed_ && packet->pts != AV_NOPTS_VALUE;
            frames_.push_back(
                {packet->pts, packet->duration, (packet->flags & AV_PKT_FLAG_KEY) != 0});
        }
    }
    // A file that is cut off shows differently by container: an index of more frames than there
    // are, or only a message.
    const bool missing = packets < avformat_index_get_entries_count(&file.stream());
    if (damaged || missing || isEndReported()) {
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

void VideoIndex::sample() {
    const auto placeOf = [this](std::int64_t time) {
        const auto units = static_cast<double>(time - frames_.front().time);
        return std::llround(units * framesPerUnit_);
    };
    const Shown& last = frames_.back();
    const std::int64_t end =
        std::max<std::int64_t>(placeOf(last.time + last.duration), placeOf(last.time) + 1);
    if (end > kMostSamples) {
        throw MediaError(
            "The video is too long for its frame rate. Convert it to a constant frame rate first.");
    }
    samples_.assign(static_cast<std::size_t>(end), 0);
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        const std::int64_t from = placeOf(frames_[i].time);
        const std::int64_t to = i + 1 < frames_.size() ? placeOf(frames_[i + 1].time) : end;
        for (std::int64_t place = from; place < to; ++place) {
            samples_[static_cast<std::size_t>(place)] = static_cast<std::int64_t>(i);
        }
    }
}

void VideoIndex::chooseRate(const AVStream& stream) {
    // The average rate is wrong if the last frame lasts longer. The base rate counts fields in some
    // files and is far too high for a variable frame rate. The right one fits the frames' times.
    const auto average = rateFrom(stream.avg_frame_rate);
    const auto base = rateFrom(stream.r_frame_rate);
    for (const auto& rate : {average, base}) {
        if (rate && timed_ && liesOnGrid(*rate, stream.time_base)) {
            rate_ = *rate;
            return;
        }
    }
    rate_ = average.value_or(base.value_or(rate_));
    if (timed_ && average) {
        uneven_ = true;
        rate_ = commonRate(*average);
        framesPerUnit_ = rate_.value() * stream.time_base.num / stream.time_base.den;
        sample();
    }
}

bool VideoIndex::liesOnGrid(const Rational& rate, const AVRational& unit) const {
    const double framesPerUnit = rate.value() * unit.num / unit.den;
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        const double place = static_cast<double>(frames_[i].time - frames_[0].time) * framesPerUnit;
        if (std::abs(place - static_cast<double>(i)) >= 0.5) {
            return false;
        }
    }
    return true;
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
