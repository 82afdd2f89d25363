// The order of the source folders: which may include which, and what of the world outside.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ruvex {

/// One folder, and what its files may name in quoted includes besides the folder itself: other
/// folders, or single files where only these are meant.
struct Layer {
    std::string_view folder;
    std::vector<std::string_view> mayInclude;
    /// True where the standard library's own headers are all that may come from outside.
    bool standardOnly = false;
};

/// Headers of a library, by how their names begin, and the folders that may use it.
struct OutsideLibrary {
    std::string_view prefix;
    std::vector<std::string_view> users;
};

/// Where OpenGL and GLU may be called. A name that ends with '/' or '_' is how paths begin; any
/// other is a file without its extension.
const std::vector<std::string_view>& openGlUsers();

/// The first function of OpenGL or GLU that the line names outside a comment and that the file at
/// `path` may not call; empty if there is none.
std::string_view misplacedOpenGl(std::string_view path, std::string_view line);

/// From the bottom of the house up.
const std::vector<Layer>& layers();

const std::vector<OutsideLibrary>& outsideLibraries();

/// Folders that stand outside the house and may include anything.
const std::vector<std::string_view>& freeFolders();

/// The layer that the path, seen from the root, lies in; null outside all layers.
const Layer* layerOf(std::string_view path);

/// What is wrong with a line of the file at `path`; empty for a line that may stand there, and for
/// every line that is no include.
std::string complaint(std::string_view path, std::string_view line);

}  // namespace ruvex
