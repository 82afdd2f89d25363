// A command line that cannot be meant.

#pragma once

#include <stdexcept>
#include <string>

namespace ruvex::cli {

/// A sentence on what is wrong with the command line and what would be right. Ends the program with
/// status 2, where a job that failed ends it with 1.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const std::string& sentence) : std::runtime_error(sentence) {}
};

}  // namespace ruvex::cli
