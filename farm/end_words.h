// How a scheduler ended a task, in plain words.

#pragma once

#include <string>
#include <string_view>

namespace ruvex::farm {

/// Of a state in the scheduler's words: "TIMEOUT" becomes what was reached and what to do about it.
/// Empty for a state that tells nothing of the reason, as FAILED, and for unknown ones.
std::string wordsOfState(std::string_view state);

/// Of a line that the scheduler writes into the log of a task that it ends, as
/// "slurmstepd-n0: error: *** JOB 9 ON n0 CANCELLED AT 2025-01-31T10:00:00 DUE TO TIME LIMIT ***",
/// or that the system's lack of memory leaves there. Empty for any other line.
std::string wordsOfEndLine(std::string_view line);

/// Whether such a line says only that the task was cancelled, not why.
bool isBareCancellation(std::string_view line);

/// Of a task that was asked to end, and did: by whom is not known.
std::string wordsOfStop();

}  // namespace ruvex::farm
