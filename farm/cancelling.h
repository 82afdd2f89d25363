// Ending a farm job before it is done.

#pragma once

#include <stop_token>

#include "farm/farm.h"

namespace ruvex::farm {

/// Takes all of the job out of the queue, waits until its tasks have ended, and removes the files
/// that they did not complete. What is done stays, and submitMissing goes on from there. The number
/// of elements that were in the queue. Throws FarmError without Slurm, and if a task does not end
/// within two minutes.
std::int64_t cancelAll(const Farm& farm, const std::stop_token& stop = {});

}  // namespace ruvex::farm
