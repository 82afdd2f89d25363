// Handing to the scheduler what is not done.

#pragma once

#include <cstdint>

#include "farm/farm.h"

namespace ruvex::farm {

/// What a submission comes to.
struct Submission {
    std::int64_t submitted = 0;  ///< Chunks.
    std::int64_t complete = 0;   ///< Chunks that need no task: done, or of a clip that is complete.
    std::int64_t queued = 0;     ///< Chunks that wait or run already.
    std::int64_t joins = 0;      ///< Submitted.
};

/// Submits the chunks that are neither complete nor in the queue, and joins that begin when all
/// chunks have ended, however they end: a join that lacks a chunk says so. Throws FarmError if
/// another submission of the same job is under way, if the job or the program has changed, and as
/// submitArray does; what was submitted before that stays.
Submission submitMissing(const Farm& farm);

}  // namespace ruvex::farm
