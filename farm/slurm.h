// The scheduler's own programs: sbatch, squeue and scancel of Slurm.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "farm/array_name.h"

namespace ruvex::farm {

/// The number that the scheduler gives an array. Later arrays have greater ones.
using ArrayId = std::int64_t;

/// An array to submit.
struct NewArray {
    ArrayName name;
    std::vector<std::int64_t> numbers;  ///< Of chunks or clips, rising, from name.first on.
    std::vector<ArrayId> after{};       ///< Arrays that have to end first, however they end.
};

/// Submits an array. A dependency among the extra options is that of tasks which wait for no other
/// array. Throws FarmError with the scheduler's words if it refuses, and without Slurm on this
/// machine.
ArrayId submitArray(const Farm& farm, const SchedulerOptions& options, const NewArray& array);

/// An element of an array that waits, runs, or has ended.
struct QueuedElement {
    Work work = Work::Task;
    std::int64_t number = 0;  ///< Of a chunk or a clip.
    ArrayId array = 0;
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

/// Which elements of an array are taken out of the queue.
enum class Cancel {
    All,      ///< Those that run are ended.
    Waiting,  ///< Those that run go on.
};

/// Does nothing without arrays. Throws FarmError.
void cancelArrays(std::span<const ArrayId> arrays, Cancel which);

}  // namespace ruvex::farm
