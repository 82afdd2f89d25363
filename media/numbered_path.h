// File names with a frame number in them: "shot.%05d.png" stands for shot.00007.png and the rest.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace ruvex::media {

/// A path whose last part holds one "%d" or "%0Nd" (N from 1 to 18), or a plain path.
class NumberedPath {
public:
    explicit NumberedPath(const std::filesystem::path& path);

    /// Whether there is a number in the name.
    bool isPattern() const { return pattern_; }

    /// The file of a frame; a plain path is the file of every number.
    std::filesystem::path file(std::int64_t number) const;

    /// Whether a file of this name, without a folder, is that of one of the numbers.
    bool fits(const std::string& name) const;

    /// The path as it was given, for messages.
    std::string text() const { return path_.string(); }

    /// First and last number for which a file exists.
    struct Range {
        std::int64_t first = 0;
        std::int64_t last = 0;
    };
    /// Looks through the folder. A plain path counts as number 0. Nothing if no file is there.
    std::optional<Range> existing() const;

private:
    std::optional<std::int64_t> numberOf(const std::string& name) const;

    std::filesystem::path path_;
    bool pattern_ = false;
    std::string before_;
    std::string after_;
    int digits_ = 1;
};

}  // namespace ruvex::media
