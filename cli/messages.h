// What a command says, beside what it writes into files.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace ruvex::cli {

/// The text in quotation marks, for sentences.
std::string inQuotes(std::string_view text);

/// One line each, on the standard error stream; the command goes on.
void printWarnings(const std::vector<std::string>& warnings);

/// Says that a stop was wished and that `result` is not there; the exit status.
int reportStop(const std::filesystem::path& result);

/// Hands over what was printed on the standard output. The exit status: 1, with a sentence, if
/// that failed.
int finishOutput();

}  // namespace ruvex::cli
