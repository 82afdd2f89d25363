// `ruvex module`: what the module registers, and registering it.

#pragma once

namespace CLI {
class App;
}

namespace ruvex::cli {

struct ModuleOptions {
    bool json = false;
    bool enter = false;
    bool remove = false;
};

/// Declares the options, with their help, on the command. `options` is filled when the command line
/// is parsed and must live until then.
void declareModuleOptions(CLI::App& command, ModuleOptions& options);

/// The exit status.
int runModule(const ModuleOptions& options);

}  // namespace ruvex::cli
