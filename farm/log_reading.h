// What a task has printed before it ended.

#pragma once

#include <filesystem>
#include <string>

namespace ruvex::farm {

/// Each task begins what it prints with such a line, so that a log that is continued by a later
/// attempt can be told apart, and so that a full disk has room left for the line that says so.
std::string firstLogLine(const std::string& work, const std::string& host);

/// Ends the log of a task that was cancelled with its farm job, which is no failure.
inline constexpr const char* kCancelledLogLine = "ruvex: cancelled with its farm job.";

/// What the last attempt in a log says of its failure: the first line that tells of an error, or
/// else why the scheduler ended the task, in plain words; empty without a log or such a line.
struct LogFailure {
    std::string host{};      ///< As the first line names it; may be empty.
    std::string sentence{};  ///< May be empty.
    bool vague = false;      ///< It says that the task was ended, not why.
    bool exists = false;     ///< Whether there is a log at all.
    bool cancelled = false;  ///< It ends with kCancelledLogLine.
};
LogFailure failureIn(const std::filesystem::path& log);

}  // namespace ruvex::farm
