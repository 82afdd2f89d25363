// Ending a farm job before it is done.

#pragma once

#include <stop_token>

#include "farm/farm.h"

namespace ruvex::farm {

enum class CancelEnd {
    NothingQueued,
    Ended,    ///< All that was in the queue has ended.
    Stopped,  ///< By the token; tasks may still run.
};

/// Takes all of the job out of the queue, waits until its tasks have ended, and removes the files
/// that they did not complete. What is done stays, and submitMissing goes on from there. Throws
/// FarmError without Slurm, if a submission is under way, and if a task does not end within two
/// minutes.
CancelEnd cancelAll(const Farm& farm, const std::stop_token& stop = {});

}  // namespace ruvex::farm
