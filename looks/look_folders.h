// The folders that hold the looks in files.

#pragma once

#include <filesystem>

namespace ruvex::looks {

/// A folder need not exist; empty where there is none.
struct LookFolders {
    std::filesystem::path shipped{};  ///< Of the looks that come with the program.
    std::filesystem::path user{};     ///< Of the user's own looks.
};

/// The user's folder is ruvex/looks in the user's data folder: $XDG_DATA_HOME, or else
/// ~/.local/share; on Windows %APPDATA%.
///
/// The shipped looks are searched from the folder of the program or library that this code is
/// linked into, and then from that of `module`, the file of the effect's module, if it is given: in
/// looks/ (a build), ../Resources/looks (a bundle of an OpenFX plug-in), ../share/ruvex/looks and
/// ../../share/ruvex/looks (an installation, from bin/ and lib/ruvex/).
LookFolders lookFolders(const std::filesystem::path& module = {});

}  // namespace ruvex::looks
