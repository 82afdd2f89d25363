// File names with a frame number: "shot.%05d.png" is the sequence shot.00000.png, shot.00001.png,
// ...

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace ruvex::files {

/// A path whose file name contains one "%d" or "%0Nd" (N from 1 to 18), or a plain path.
class NumberedPath {
public:
    explicit NumberedPath(const std::filesystem::path& path);

    /// Whether the name contains a number field.
    bool isPattern() const { return pattern_; }

    /// The file of a frame. For a plain path, the same file for every number.
    std::filesystem::path file(std::int64_t number) const;

    /// Whether a file name (without folder) belongs to the sequence, or is the plain file's.
    bool fits(const std::string& name) const;

    /// The path as given, for messages.
    std::string text() const { return path_.string(); }

    /// First and last number, both inclusive.
    struct Range {
        std::int64_t first = 0;
        std::int64_t last = 0;
    };
    /// The numbers of the files that exist; a plain path counts as number 0. Empty if there are
    /// none.
    std::optional<Range> existing() const;

private:
    std::optional<std::int64_t> numberOf(const std::string& name) const;

    std::filesystem::path path_;
    bool pattern_ = false;
    std::string before_;
    std::string after_;
    int digits_ = 1;
};

}  // namespace ruvex::files
