// File names with a frame number: "shot.%05d.png" is the sequence shot.00000.png, shot.00001.png,
// ...

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ruvex::files {

/// A path whose file name contains one number field, "%d" or "%0Nd" (N from 1 to 18), or a plain
/// path. "%%d" stands for "%d" as it is; percent signs elsewhere stand for themselves.
class NumberedPath {
public:
    explicit NumberedPath(const std::filesystem::path& path);

    /// Whether the name contains a number field.
    bool isPattern() const { return pattern_; }

    /// The file that the path names where a number field has no meaning, as for a video.
    std::filesystem::path plain() const;

    /// The file of a frame. For a plain path, the same file for every number.
    std::filesystem::path file(std::int64_t number) const;

    /// Whether a file name (without folder) belongs to the sequence, or is the plain file's.
    bool fits(const std::string& name) const;

    /// What stands before the number in the name of each file; the whole name of a plain path.
    const std::string& beforeNumber() const { return before_; }

    /// The path as given, for messages.
    std::string text() const { return path_.string(); }

    /// The numbers of the files that exist, in no particular order; a plain path counts as
    /// number 0.
    std::vector<std::int64_t> numbers() const;

    /// First and last number, both inclusive.
    struct Range {
        std::int64_t first = 0;
        std::int64_t last = 0;
    };
    /// The least and the greatest of `numbers`. Empty if there are none.
    std::optional<Range> existing() const;

private:
    void takeText(std::string_view& rest, std::size_t length);
    void takeField(std::string_view& rest, std::size_t length, int digits);
    std::filesystem::path sibling(const std::string& name) const;
    std::optional<std::int64_t> numberOf(const std::string& name) const;

    std::filesystem::path path_;
    bool pattern_ = false;
    std::string before_;  ///< The name up to the field; all of it without a field.
    std::string field_;   ///< As it was written: "%05d".
    std::string after_;
    int digits_ = 1;
};

/// The path with which NumberedPath names `file`, whose percent signs stand for themselves.
std::filesystem::path asNumberedPath(const std::filesystem::path& file);

}  // namespace ruvex::files
