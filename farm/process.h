// Running another program.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ruvex::farm {

struct ProcessResult {
    int status = -1;  ///< The exit status; -1 if a signal ended the program.
    std::string out;
    std::string err;
};

/// Runs a program that is searched in PATH, without input, and waits for its end. Empty if there is
/// no such program. Throws FarmError if the system cannot start it.
std::optional<ProcessResult> runProgram(const std::vector<std::string>& words);

}  // namespace ruvex::farm
