// Comparison of a label that a user types with the labels of the table.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace ruvex {

/// The label without spaces and tabs, and with A to Z in lower case. Other characters stay, so that
/// "B & W" and "b&w" are one label and "Type 1" and "Type 2" are two.
std::string bareLabel(std::string_view label);

/// True when both have the same bare form.
bool labelsMatch(std::string_view a, std::string_view b);

/// The Levenshtein distance of the bare forms: the least number of characters to insert, remove or
/// replace.
std::size_t labelDistance(std::string_view a, std::string_view b);

/// The most similar label, if at most every third character of the name is wrong; empty if none is
/// so similar.
std::string_view similarLabel(std::string_view name, std::span<const std::string_view> labels);

}  // namespace ruvex
