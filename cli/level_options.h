// The options of `ruvex level`, as they are typed.

#pragma once

#include <string>

#include "cli/parameter_choice.h"

namespace CLI {
class App;
}

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

/// Declares the options, with their help, on the command. `options` is filled when the command line
/// is parsed and must live until then.
void declareLevelOptions(CLI::App& command, LevelOptions& options);

}  // namespace ruvex::cli
