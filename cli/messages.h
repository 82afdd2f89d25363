// What a command says, beside what it writes into files.

#pragma once

#include <string>
#include <vector>

namespace ruvex::cli {

/// One line each, on the standard error stream; the command goes on.
void printWarnings(const std::vector<std::string>& warnings);

/// Hands over what was printed on the standard output. The exit status: 1, with a sentence, if
/// that failed.
int finishOutput();

}  // namespace ruvex::cli
