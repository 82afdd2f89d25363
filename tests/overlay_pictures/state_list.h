// The list of a folder's states, in the lines that the program prints:
//
//   state NAME WIDTHxHEIGHT grey|gradient drawn|empty
//   text X Y WIDTH HEIGHT           a text area of this state
//   end: overlay_states COUNT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/overlay_pictures/state_picture.h"

namespace ruvex::test {

/// The file of a folder that holds its list.
inline constexpr char kStateList[] = "states.txt";

/// The lines of one state, each with its line end.
std::string linesOf(const StatePicture& picture);
/// The last line.
std::string endLine(std::size_t states);

/// Reads a folder's list, without pixels. Throws std::runtime_error for a missing list, a line that
/// is none, a state that is listed twice, and a missing or wrong last line.
std::vector<StatePicture> readStateList(const std::filesystem::path& folder);

}  // namespace ruvex::test
