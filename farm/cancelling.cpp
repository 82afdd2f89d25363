#include "farm/cancelling.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>

#include "farm/farm_error.h"
#include "farm/leftovers.h"
#include "farm/log_reading.h"
#include "farm/slurm.h"
#include "farm/submission_lock.h"

namespace ruvex::farm {
namespace {

using namespace std::chrono_literals;

std::vector<QueuedElement> inQueue(const Farm& farm) {
    auto queue = queueOf(farm.job());
    if (!queue) throw FarmError("Slurm is not installed here: its queue cannot be changed.");
    return std::move(queue->elements);
}

std::vector<ArrayId> arraysOf(const std::vector<QueuedElement>& elements) {
    std::set<ArrayId> arrays;
    for (const QueuedElement& element : elements) arrays.insert(element.array);
    return {arrays.begin(), arrays.end()};
}

/// Whether nothing is in the queue; a queue that does not answer is asked again if `mayFail`.
bool hasEnded(const Farm& farm, bool mayFail) {
    try {
        return inQueue(farm).empty();
    } catch (const FarmError&) {
        if (!mayFail) throw;
        return false;
    }
}

/// Notes in the logs of tasks that ran that they have not failed.
void noteCancelled(const Farm& farm, const std::vector<QueuedElement>& elements) {
    for (const QueuedElement& element : elements) {
        const std::filesystem::path log = logOf(farm, element.work, element.number);
        std::error_code ignored;
        if (!element.running || !std::filesystem::exists(log, ignored)) continue;
        std::ofstream(log, std::ios::app) << kCancelledLogLine << '\n';
    }
}

/// False after a stop.
bool waitForEnd(const Farm& farm, const std::stop_token& stop) {
    constexpr auto kPause = 500ms;
    constexpr auto kLongest = 2min;
    for (auto waited = 0ms; !hasEnded(farm, waited < kLongest); waited += kPause) {
        if (waited >= kLongest) {
            throw FarmError("Tasks of " + farm.layout().folder().string() +
                            " do not end. 'squeue' lists them; cancel again when they have.");
        }
        if (stop.stop_requested()) return false;
        std::this_thread::sleep_for(kPause);
    }
    return !stop.stop_requested();
}

}  // namespace

CancelEnd cancelAll(const Farm& farm, const std::stop_token& stop) {
    // Nothing new is submitted before the end.
    const SubmissionLock lock(farm.layout());
    const std::vector<QueuedElement> elements = inQueue(farm);
    const std::vector<ArrayId> arrays = arraysOf(elements);
    if (stop.stop_requested()) return CancelEnd::Stopped;
    cancelArrays(arrays, Cancel::All);
    if (!arrays.empty()) {
        if (!waitForEnd(farm, stop)) return CancelEnd::Stopped;
        noteCancelled(farm, elements);
        // A younger file counts as one that a program has just begun.
        std::this_thread::sleep_for(1100ms);
    }
    for (std::size_t clip = 0; clip < farm.job().clips.size(); ++clip) removeLeftovers(farm, clip);
    removeRecordLeftovers(farm);
    return arrays.empty() ? CancelEnd::NothingQueued : CancelEnd::Ended;
}

}  // namespace ruvex::farm
