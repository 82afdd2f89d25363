// What is known of chunks and joins that are neither done nor in the queue.

#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "farm/slurm.h"

namespace ruvex::farm {

/// A chunk or a join that has failed.
struct FailedPart {
    std::string what{};    ///< "chunk 17 (frames 400-424 of out.mov)".
    std::string host;      ///< Empty where it is not known.
    std::string sentence;  ///< The first error line.
};

/// Looks at the records of failures, at the logs, and at what the scheduler remembers of the tasks
/// that have ended.
class FailureReader {
public:
    /// `queue` is empty where it is not known; then what waits and runs is not known either, and
    /// only what tells of an error itself has failed. `farm` has to outlive the object.
    FailureReader(const Farm& farm, const std::optional<Queue>& queue);

    /// Of a chunk or a clip by its number; empty if nothing is known of it.
    std::optional<FailedPart> failureOf(Work work, std::int64_t number) const;

private:
    /// How its last attempt ended, as far as the scheduler remembers it; null where it does not.
    const QueuedElement* endOf(Work work, std::int64_t number) const;

    const Farm& farm_;
    bool queueKnown_;
    std::map<std::pair<Work, std::int64_t>, QueuedElement> ends_;
    std::unordered_set<std::string> failures_;  ///< Names of records.
    std::unordered_set<std::string> logs_;      ///< Names of logs.
};

}  // namespace ruvex::farm
