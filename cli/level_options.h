// The options of `ruvex level`, as they are typed.

#pragma once

#include <string>

#include "cli/command_table.h"
#include "cli/parameter_options.h"

namespace ruvex::cli {

/// Empty where an option was not given.
struct LevelOptions {
    std::string input;
    std::string rate;
    std::string size;
    std::string frames;
    ParameterOptions parameters;
    std::string plot;
    bool csv = false;
};

OptionTable levelOptions(LevelOptions& options);

}  // namespace ruvex::cli
