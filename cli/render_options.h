// The options of `ruvex render`, as they are typed.

#pragma once

#include <string>

#include "cli/parameter_choice.h"

namespace CLI {
class App;
}

namespace ruvex::cli {

/// Empty where an option was not given.
struct RenderOptions {
    std::string input;
    std::string output;
    std::string size;
    std::string rate;
    ParameterOptions parameters;
    std::string frames;
    std::string depth;
    std::string workers;
    std::string projectSize;
    std::string pixelAspect;
    std::string region;
    std::string mask;
    std::string ends;
};

/// Declares the options, with their help, on the command. `options` is filled when the command line
/// is parsed and must live until then.
void declareRenderOptions(CLI::App& command, RenderOptions& options);

}  // namespace ruvex::cli
