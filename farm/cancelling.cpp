#include "farm/cancelling.h"

#include <chrono>
#include <set>
#include <thread>

#include "farm/farm_error.h"
#include "farm/leftovers.h"
#include "farm/slurm.h"

namespace ruvex::farm {
namespace {

using namespace std::chrono_literals;

std::vector<QueuedElement> inQueue(const Farm& farm) {
    auto queue = queueOf(farm.job());
    if (!queue) throw FarmError("Slurm is not installed here: its queue cannot be changed.");
    return std::move(queue->elements);
}

void waitForEnd(const Farm& farm, const std::stop_token& stop) {
    constexpr auto kPause = 500ms;
    constexpr auto kLongest = 2min;
    for (auto waited = 0ms; !inQueue(farm).empty() && !stop.stop_requested(); waited += kPause) {
        if (waited >= kLongest) {
            throw FarmError("Tasks of " + farm.layout().folder().string() +
                            " do not end. 'squeue' lists them; cancel again when they have.");
        }
        std::this_thread::sleep_for(kPause);
    }
}

}  // namespace

std::int64_t cancelAll(const Farm& farm, const std::stop_token& stop) {
    const std::vector<QueuedElement> elements = inQueue(farm);
    std::set<std::string> arrays;
    for (const QueuedElement& element : elements) arrays.insert(element.array);
    cancelArrays(std::vector<std::string>(arrays.begin(), arrays.end()));
    if (!elements.empty()) {
        waitForEnd(farm, stop);
        // A younger file counts as one that a program has just begun.
        std::this_thread::sleep_for(1100ms);
    }
    for (std::size_t clip = 0; clip < farm.job().clips.size(); ++clip) removeLeftovers(farm, clip);
    return std::ssize(elements);
}

}  // namespace ruvex::farm
