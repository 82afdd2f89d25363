// The options that choose parameters: the same for every command that runs the effect.

#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// As they are typed; empty where an option was not given.
struct ParameterOptions {
    std::string preset;
    std::string params;
    std::vector<std::string> settings;
    std::vector<std::string> keys;
    std::string keyOffset;
    std::string saveParams;
};

/// --preset, --params, --key-offset, --set, --key and --save-params, in the order in which they
/// take effect.
OptionTable parameterOptions(ParameterOptions& options);

}  // namespace ruvex::cli
