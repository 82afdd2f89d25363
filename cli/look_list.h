// The looks of the library as text.

#pragma once

#include <span>
#include <string>

#include "looks/look_library.h"

namespace ruvex::cli {

/// One line a look: its name and what it is for, under a heading for each group.
std::string lookListText(std::span<const looks::LibraryLook> list);

/// One name a line.
std::string lookNamesText(std::span<const looks::LibraryLook> list);

/// A JSON array with one object a look: name, group ("preset", "look", "own"), description,
/// author, file, projectSize, and animated, which is true for a look with keys. What a look does
/// not have is null.
std::string lookListJson(std::span<const looks::LibraryLook> list);

}  // namespace ruvex::cli
