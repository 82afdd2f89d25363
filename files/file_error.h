// The error of everything that reads or writes files.

#pragma once

#include <stdexcept>
#include <string>

namespace ruvex::files {

/// One sentence for the user: what went wrong, with which file, and what to do about it.
class FileError : public std::runtime_error {
public:
    explicit FileError(const std::string& sentence) : std::runtime_error(sentence) {}
};

}  // namespace ruvex::files
