#include "farm/render_rate.h"

#include <algorithm>
#include <functional>

namespace ruvex::farm {
namespace {

using Records = std::vector<const DoneRecord*>;

auto framesOf(const DoneRecord& record) {
    return static_cast<double>(record.frames.count());
}

/// Of one task, over the chunks that ended last.
double framesPerSecondOfTask(Records records) {
    // Enough to even out chunks of different weight.
    constexpr std::size_t kMost = 64;
    const std::size_t count = std::min(kMost, records.size());
    std::ranges::partial_sort(records, records.begin() + static_cast<std::ptrdiff_t>(count),
                              std::greater(), &DoneRecord::finished);
    double frames = 0.0;
    double seconds = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        frames += framesOf(*records[i]);
        seconds += records[i]->seconds;
    }
    return seconds > 0.0 ? frames / seconds : 0.0;
}

/// The chunks that ended in the last part of the job's time, long enough for several chunks of each
/// machine.
Records recentOf(Records records) {
    constexpr double kHalfAnHour = 1800.0;
    constexpr double kChunks = 4.0;
    const DoneRecord& last = **std::ranges::max_element(records, {}, &DoneRecord::finished);
    const double begin = last.finished - std::max(kHalfAnHour, kChunks * last.seconds);
    std::erase_if(records, [&](const DoneRecord* record) { return record->finished < begin; });
    return records;
}

double framesPerSecondBetweenEnds(const Records& records) {
    const auto [first, last] = std::ranges::minmax_element(records, {}, &DoneRecord::finished);
    const double begin = (*first)->finished;
    const double seconds = (*last)->finished - begin;
    if (!(seconds > 0.0)) return 0.0;
    double frames = 0.0;
    for (const DoneRecord* record : records) {
        const double after = record->finished - begin;
        const double part = record->seconds > after ? after / record->seconds : 1.0;
        frames += framesOf(*record) * part;
    }
    return frames / seconds;
}

}  // namespace

double framesPerSecond(Records records, std::optional<std::int64_t> running) {
    if (records.empty()) return 0.0;
    if (!running) return framesPerSecondBetweenEnds(recentOf(std::move(records)));
    return framesPerSecondOfTask(std::move(records)) * static_cast<double>(*running);
}

}  // namespace ruvex::farm
