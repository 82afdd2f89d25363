// Messages of a command, beside what it writes into files.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ruvex::cli {

/// Prints one line each on the standard error stream.
void printWarnings(const std::vector<std::string>& warnings);

/// Reports that the command was stopped and `result` is not complete. Returns the exit status.
int reportStop(const std::filesystem::path& result);

/// Flushes the standard output. Returns the exit status: 1, with a message, if that failed.
int finishOutput();

}  // namespace ruvex::cli
