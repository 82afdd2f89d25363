// The `ruvex` command: which command was meant, and how it ended.

#pragma once

namespace ruvex::cli {

/// Runs the command line; the exit status: 0 done, 1 the job failed, 2 the command line is wrong,
/// 130 stopped. Failures are told on the standard error stream; nothing is thrown.
int runCommandLine(int argc, const char* const* argv);

}  // namespace ruvex::cli
