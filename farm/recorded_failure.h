// Failures of tasks, kept where 'ruvex farm status' finds them.

#pragma once

#include <exception>
#include <filesystem>

#include "farm/records.h"

namespace ruvex::farm {

/// Runs `work`; the result is its own. If it throws, the sentence is recorded in `file`, and thrown
/// on. If it does not, an earlier record is removed.
template <class Work>
auto withFailureRecorded(const std::filesystem::path& file, Work work) {
    try {
        auto result = work();
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
        return result;
    } catch (const std::exception& error) {
        writeFailure(file, {error.what(), hostName()});
        throw;
    }
}

}  // namespace ruvex::farm
