// --set and --key: parameters by their labels.

#pragma once

#include <string>
#include <vector>

#include "looks/parameter_change.h"

namespace ruvex::cli {

/// "NAME=VALUE", the value of `option`. Throws UsageError: an unknown name, with the nearest one,
/// or a value that the parameter does not take. What the render will only hold to its range goes to
/// `warnings`.
looks::Setting parseSetting(const std::string& text, std::vector<std::string>& warnings,
                            const std::string& option = "--set");

/// "NAME=T:V T:V:MODE ...", T in seconds; the mode is linear, hold or smooth. Throws UsageError,
/// also for a parameter that is not real and for two keys at one time.
looks::Animation parseAnimation(const std::string& text, std::vector<std::string>& warnings);

}  // namespace ruvex::cli
