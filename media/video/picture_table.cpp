#include "media/video/picture_table.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "media/av_library.h"
#include "media/media_error.h"
#include "media/video/video_file.h"

namespace ruvex::media {
namespace {

/// The relative difference below which two rates count as the same: containers with a coarse time
/// base store 30000/1001 as a fraction close to it.
constexpr double kSameRate = 2e-7;

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

/// Fills the list with the packets that are shown, in the file's order.
void collect(VideoFile& file, const std::filesystem::path& path, PictureTable& table) {
    const AvPacket packet = newAvPacket();
    int packets = 0;
    std::uint64_t frameBytes = 0;
    bool damaged = false;
    for (; file.next(*packet); ++packets) {
        frameBytes = static_cast<std::uint64_t>(packet->size);
        damaged = damaged || marksDamage(file.format(), *packet);
        if ((packet->flags & AV_PKT_FLAG_DISCARD) == 0) {
            table.timed = table.timed && packet->pts != AV_NOPTS_VALUE;
            table.pictures.push_back(
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

/// Puts the pictures in display order.
void sortByTime(PictureTable& table) {
    std::ranges::sort(table.pictures, {}, &ListedPicture::time);
    table.timed = std::ranges::adjacent_find(table.pictures, {}, &ListedPicture::time) ==
                  table.pictures.end();
}

}  // namespace

PictureTable listPictures(const std::filesystem::path& path) {
    VideoFile file(path);
    takeLibraryError();
    PictureTable table;
    table.timed = !lacksTimes(file);
    collect(file, path, table);
    if (table.pictures.empty()) {
        throw MediaError("Cannot read " + path.string() + ": its video has no frames.");
    }
    if (table.timed) sortByTime(table);
    const AVStream& stream = file.stream();
    table.declared = declaredRates(stream);
    if (table.timed) table.unit = makeRational(stream.time_base.num, stream.time_base.den);
    return table;
}

}  // namespace ruvex::media
