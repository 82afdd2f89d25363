// The scheduler's own programs: sbatch, squeue and scancel of Slurm.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "farm/array_name.h"

namespace ruvex::farm {

/// An array to submit.
struct NewArray {
    ArrayName name;
    std::vector<std::int64_t> numbers;  ///< Of chunks or clips, rising, in [first, first + 1000).
    std::vector<std::string> after{};   ///< Arrays that have to end first, however they end.
};

/// Submits an array; the number that the scheduler gave it. Throws FarmError with the scheduler's
/// words if it refuses, and without Slurm on this machine.
std::string submitArray(const Farm& farm, const NewArray& array);

/// An element of an array that waits, runs, or has ended.
struct QueuedElement {
    Work work = Work::Task;
    std::int64_t number = 0;  ///< Of a chunk or a clip.
    std::string array;        ///< The scheduler's number of its array.
    bool running = false;
    std::string state;   ///< In the scheduler's words: "PENDING", "TIMEOUT".
    std::string node;    ///< Empty for one that waits.
    std::string reason;  ///< Why it waits, in the scheduler's words: "Resources".
};

/// What the scheduler tells of a job.
struct Queue {
    std::vector<QueuedElement> elements;  ///< That wait or run.
    /// That have ended, as long as the scheduler remembers them: some minutes.
    std::vector<QueuedElement> ended;
};

/// Reads what squeue has printed, one element a line: "NAME|ARRAY|INDEX|STATE|NODES|REASON". Lines
/// of other jobs are left out.
Queue parseQueue(const FarmJob& job, const std::string& text);

/// The job's queue; empty if this machine has no Slurm. Throws FarmError with the scheduler's words
/// if it does not answer.
std::optional<Queue> queueOf(const FarmJob& job);

/// Takes arrays out of the queue and ends their elements. Throws FarmError.
void cancelArrays(std::span<const std::string> arrays);

}  // namespace ruvex::farm
