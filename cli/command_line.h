// The `ruvex` command: which command was meant, and how it ended.

#pragma once

#include <string>

namespace ruvex::cli {

/// Runs the command line; the exit status: 0 done, 1 the job failed, 2 the command line is wrong,
/// 130 stopped. Failures are told on the standard error stream; nothing is thrown.
int runCommandLine(int argc, const char* const* argv);

/// What --help prints after the command `name`; of the whole program where that is empty. Throws
/// UsageError for a name that is no command's.
std::string helpText(const std::string& name);

}  // namespace ruvex::cli
