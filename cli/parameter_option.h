// --set and --key: parameters by their labels.

#pragma once

#include <string>
#include <vector>

#include "parameters/parameter_table.h"

namespace ruvex::cli {

/// A parameter at one value at all times.
struct Setting {
    const ParameterRow* row = nullptr;
    double value = 0.0;
};

struct Key {
    double seconds = 0.0;
    double value = 0.0;
};

/// A real parameter that changes; keys in the order of their times, at least one.
struct Animation {
    const ParameterRow* row = nullptr;
    std::vector<Key> keys;
};

/// "NAME=VALUE". Throws UsageError: an unknown name, with the nearest one, or a value that the
/// parameter does not take. What the render will only hold to its range goes to `warnings`.
Setting parseSetting(const std::string& text, std::vector<std::string>& warnings);

/// "NAME=T:V T:V ...", T in seconds. Throws UsageError, also for a parameter that is not real and
/// for two keys at one time.
Animation parseAnimation(const std::string& text, std::vector<std::string>& warnings);

}  // namespace ruvex::cli
