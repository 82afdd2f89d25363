// A folder for the files of one test.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ruvex::files {

/// Made empty, removed with all it holds.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path file(const std::string& name) const { return path_ / name; }
    /// Names of all files, hidden ones too, sorted.
    std::vector<std::string> names() const;

private:
    std::filesystem::path path_;
};

}  // namespace ruvex::files
