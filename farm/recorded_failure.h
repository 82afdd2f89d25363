// Failures of tasks, kept where 'ruvex farm status' finds them.

#pragma once

#include <exception>
#include <filesystem>

#include "farm/records.h"
#include "farm/run_chunk.h"

namespace ruvex::farm {

/// Runs `work`; the result is its own. The record of an earlier attempt is removed first. If it
/// throws, the sentence is recorded in `file`, and thrown on.
template <class Work>
TaskEnd withFailureRecorded(const std::filesystem::path& file, Work work) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    try {
        return work();
    } catch (const std::exception& error) {
        writeFailure(file, {error.what(), hostName()});
        throw;
    }
}

}  // namespace ruvex::farm
