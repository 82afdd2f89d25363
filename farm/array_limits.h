// What a scheduler takes at the most.

#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "farm/farm_job.h"

namespace ruvex::farm {

struct ArrayLimits {
    /// Elements of an array; they are numbered from 0 on. Unless the scheduler names another
    /// number, what it takes as it is installed (MaxArraySize is 1001).
    std::int64_t arrayLength = 1000;
    /// Elements of all arrays in the queue.
    std::int64_t queueLength = std::numeric_limits<std::int64_t>::max();

    friend bool operator==(const ArrayLimits&, const ArrayLimits&) = default;
};

/// Reads what 'scontrol show config' has printed, a line "MaxArraySize            = 1001" for each
/// setting. What it does not name stays as it is by itself. Throws FarmError if the scheduler
/// allows no arrays.
ArrayLimits parseLimits(const std::string& config);

/// Of the scheduler of this machine; those of ArrayLimits where it has none, or does not answer.
/// Throws as parseLimits does.
ArrayLimits schedulerLimits();

/// Throws FarmError, with the chunk length that fits, if the job has more chunks and clips than the
/// queue takes.
void checkLimits(const FarmJob& job, const ArrayLimits& limits);

}  // namespace ruvex::farm
