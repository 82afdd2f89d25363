// The names under which the scheduler knows the arrays of a farm job. They alone say which chunk an
// element of an array is: nothing has to be kept of a submission, so that nothing can be lost
// between the scheduler's answer and a file.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "farm/farm.h"

namespace ruvex::farm {

enum class Work {
    Task,  ///< Renders a chunk.
    Join,  ///< Joins the chunks of a clip.
};

/// An array: element i is chunk, or clip, first + i.
struct ArrayName {
    Work work = Work::Task;
    std::int64_t first = 0;

    friend bool operator==(const ArrayName&, const ArrayName&) = default;
};

/// The first number of the array that holds chunk, or clip, `number`. Each array begins at a
/// multiple of the job's array length.
inline std::int64_t arrayStart(const FarmJob& job, std::int64_t number) {
    return number - number % job.arrayLength;
}

/// "ruvex-0123456789abcdef-task-1000".
std::string toText(const ArrayName& name, const FarmJob& job);

/// Of a name that toText has made for this job; empty for any other.
std::optional<ArrayName> arrayNamed(const std::string& text, const FarmJob& job);

/// All that a job may have in a queue, separated by commas.
std::string allArrayNames(const FarmJob& job);

/// "task" or "join", as the batch script takes it.
inline const char* wordOf(Work work) {
    return work == Work::Task ? "task" : "join";
}

/// What element `number` (of a chunk or a clip) prints goes there.
std::filesystem::path logOf(const Farm& farm, Work work, std::int64_t number);

}  // namespace ruvex::farm
