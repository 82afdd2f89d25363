// Several values of one parameter, as --vary names them.

#pragma once

#include <string>
#include <vector>

#include "looks/parameter_change.h"

namespace ruvex::cli {

/// A sheet with more pictures could not be read.
inline constexpr int kMostVariations = 100;

/// One value, with the label of its picture: "Snow Max 30".
struct Variation {
    std::string label;
    looks::Setting setting;
};

/// "NAME=A..B", all whole numbers from A to B, or "NAME=VALUE,VALUE,...", each as --set takes it;
/// from 1 to kMostVariations values. Throws UsageError. Values that the render will clamp are
/// reported in `warnings`.
std::vector<Variation> parseVariations(const std::string& text, std::vector<std::string>& warnings);

}  // namespace ruvex::cli
