// The folders that hold the looks in files.

#pragma once

#include <filesystem>

namespace ruvex::looks {

/// A folder need not exist; empty where there is none.
struct LookFolders {
    std::filesystem::path shipped{};  ///< Of the looks that come with the program.
    std::filesystem::path user{};     ///< Of the user's own looks.
};

/// The folder of the shipped looks that belongs to a program or library; empty if there is none. It
/// is searched from the file's folder: looks/ (a build), ../Resources/looks (a bundle of an OpenFX
/// plug-in), ../share/ruvex/looks and ../../share/ruvex/looks (an installation, from bin/ and
/// lib/ruvex/).
std::filesystem::path shippedLookFolder(const std::filesystem::path& file);

/// The user's folder is ruvex/looks in the user's data folder: $XDG_DATA_HOME, or else
/// ~/.local/share; on Windows %APPDATA%. The shipped looks are those of the program or library that
/// this code is linked into, or else those of `module`, the file of the effect's module, if it is
/// given.
LookFolders lookFolders(const std::filesystem::path& module = {});

}  // namespace ruvex::looks
