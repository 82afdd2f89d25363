// The command line of page_host.

#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace ruvex::page_host {

struct Size {
    int width, height;  ///< In pixels.
};

struct Arguments {
    // The paths are absolute, since a file dialog may change the current folder.
    std::optional<std::filesystem::path> picture;  ///< Without one, a test card.
    Size testCard{720, 576};
    std::filesystem::path report;
};

/// A wrong command line.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

extern const char* const kUsage;

/// `words` without the program's name. Throws UsageError.
Arguments parseArguments(const std::vector<std::wstring>& words);

}  // namespace ruvex::page_host
