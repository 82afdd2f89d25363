// Messages of a command, beside what it writes into files.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace ruvex::cli {

/// Prints a line on the standard error stream, safe for any terminal: control characters, such as a
/// file name may hold, are shown as escapes.
void printMessage(std::string_view sentence);

/// Prints one line each on the standard error stream.
void printWarnings(const std::vector<std::string>& warnings);

/// Reports that the command was stopped and `result` is not complete. Returns the exit status.
int reportStop(const std::filesystem::path& result);

/// Flushes the standard output. Returns the exit status: 1, with a message, if that failed.
int finishOutput();

}  // namespace ruvex::cli
