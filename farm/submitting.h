// Handing to the scheduler what is not done.

#pragma once

#include <cstdint>

#include "farm/farm.h"

namespace ruvex::farm {

/// What a submission comes to.
struct Submission {
    std::int64_t submitted = 0;  ///< Chunks.
    std::int64_t joins = 0;      ///< Submitted.
    std::int64_t complete = 0;   ///< Chunks that need no task: done, or of a clip that is complete.
    std::int64_t queued = 0;     ///< Chunks that wait or run already.
    std::int64_t joinsWaiting = 0;  ///< Already, and are left as they are.
    std::int64_t joinsRunning = 0;

    /// Whether all clips were complete.
    bool allDone() const { return submitted + joins + queued + joinsWaiting + joinsRunning == 0; }
};

/// Submits the chunks that are neither complete nor in the queue, and joins that begin when all
/// chunks have ended, however they end: a join that lacks a chunk says so. A join that waits for
/// earlier tasks alone is replaced; one that runs is left alone, and so is its clip. What `given`
/// sets is taken in place of the job's own options. Throws FarmError if another submission of the
/// same job is under way, if the job or the program has changed, and as submitArray does; what was
/// submitted before that stays.
Submission submitMissing(const Farm& farm, const SchedulerOptions& given = {});

}  // namespace ruvex::farm
