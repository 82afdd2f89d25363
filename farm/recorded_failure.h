// Failures of tasks, kept where 'ruvex farm status' finds them.

#pragma once

#include <cmath>
#include <exception>
#include <filesystem>

#include "farm/records.h"
#include "farm/run_chunk.h"

namespace ruvex::farm {

/// Of a task that the scheduler ended with SIGTERM.
inline std::string stoppedText(double seconds) {
    return "it was stopped after " + std::to_string(std::llround(seconds)) +
           " s: it was cancelled, or has reached its limit of time (--time).";
}

/// Runs `work`; the result is its own. The record of an earlier attempt is removed first. If it
/// throws, the sentence is recorded in `file`, and thrown on; that it was stopped is recorded too.
template <class Work>
TaskEnd withFailureRecorded(const std::filesystem::path& file, Work work) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    const double start = secondsNow();
    try {
        const TaskEnd end = work();
        if (end == TaskEnd::Stopped) {
            writeFailure(file, {stoppedText(secondsNow() - start), hostName()});
        }
        return end;
    } catch (const std::exception& error) {
        writeFailure(file, {error.what(), hostName()});
        throw;
    }
}

}  // namespace ruvex::farm
