// Compares the pictures that two systems have drawn of the same states.

#pragma once

#include <filesystem>

namespace ruvex::test {

/// Prints a line for each state of the two folders that fails, and returns how many there are. A
/// state fails
/// - that only one folder has, or that has another size, backdrop or text area in the other;
/// - if a pixel outside of its text areas differs;
/// - if it has too few pixels other than its backdrop's, or, where nothing is drawn, any;
/// - if a text area shows no text, or text areas take too much of the picture.
/// Throws std::runtime_error if a folder has no list of its states or an empty one.
int compareStates(const std::filesystem::path& first, const std::filesystem::path& second);

}  // namespace ruvex::test
