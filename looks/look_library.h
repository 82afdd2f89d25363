// The looks that can be chosen by name: the presets of the effect, the looks that come with the
// program, and the user's own.

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "looks/look.h"
#include "looks/look_folders.h"

namespace ruvex::looks {

/// A name that belongs to no look and no file.
class UnknownLook : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

enum class LookGroup {
    Preset,   ///< Of the effect's module.
    Shipped,  ///< Files that come with the program.
    User,     ///< Files of the user.
};

struct LibraryLook {
    LookGroup group{};
    Look look{};  ///< It has a name: its file's, without the ending, where the file gives none.
    std::filesystem::path file{};         ///< Empty for a preset.
    std::vector<std::string> warnings{};  ///< Of values that the render will clamp.
};

/// A file in one of the folders that cannot be used, or only by its path.
struct LookProblem {
    std::filesystem::path file;
    std::string sentence;  ///< Begins with the file's name.
};

struct LookLibrary {
    /// Presets in the order of their table, shipped looks and then the user's, each by name. No two
    /// of them have the same name. Of looks with one name, a preset comes before a user's look, and
    /// that before a shipped one.
    std::vector<LibraryLook> looks;
    std::vector<LookProblem> problems;

    /// The look with this name, ignoring case, spaces and hyphens; or else the one whose file has
    /// this name without its ending. Null if there is none. Valid as long as the library.
    const LibraryLook* find(std::string_view name) const;

    /// The names of all looks, in their order. Valid as long as the library.
    std::vector<std::string_view> names() const;
};

/// Reads the looks in the folders: all files that end in .json and do not begin with a dot. Files
/// that cannot be used are reported in `problems`.
LookLibrary readLookLibrary(const LookFolders& folders = lookFolders());

/// The look called `name`: a preset, a user's look or a shipped one, or else the look file at this
/// path; a name with a slash is always a path. Throws UnknownLook where there is none, and as
/// readLookFile does, also for a file of the library that has this name and cannot be used.
LibraryLook readLook(const std::string& name, const LookFolders& folders = lookFolders());

/// The file that readLook reads for this name, whether or not it exists; empty for a preset.
std::filesystem::path fileOfLook(const std::string& name,
                                 const LookFolders& folders = lookFolders());

}  // namespace ruvex::looks
