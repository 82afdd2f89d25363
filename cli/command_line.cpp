#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <iostream>
#include <new>

#include "cli/level_command.h"
#include "cli/module_command.h"
#include "cli/params_command.h"
#include "cli/presets_command.h"
#include "cli/render_command.h"
#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongCommandLine = 2;

int complain(const char* sentence, int status) {
    std::fprintf(stderr, "ruvex: %s\n", sentence);
    return status;
}

/// Help and version are no failures; everything else is one of the command line.
int endParsing(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
        return app.exit(error);
    }
    complain(error.what(), kWrongCommandLine);
    return complain("'ruvex --help' says more, and so does --help after a command.",
                    kWrongCommandLine);
}

int parseAndRun(int argc, const char* const* argv) {
    CLI::App app("Faulty television: runs clips through the V_Ruvex effect.", "ruvex");
    app.set_version_flag("--version", "ruvex " RUVEX_VERSION);
    app.require_subcommand(1);

    RenderOptions options;
    CLI::App* render = app.add_subcommand("render", "Render a clip through the effect");
    declareRenderOptions(*render, options);

    LevelOptions levelOptions;
    CLI::App* level = app.add_subcommand("level", "List the level of breakup, frame by frame");
    declareLevelOptions(*level, levelOptions);

    bool json = false;
    CLI::App* params = app.add_subcommand("params", "List the parameters");
    params->add_flag("--json", json, "As JSON, with identifiers, ranges and hints");

    ModuleOptions moduleOptions;
    CLI::App* module =
        app.add_subcommand("module", "Tell what the module registers, or register it");
    declareModuleOptions(*module, moduleOptions);

    CLI::App* presets = app.add_subcommand("presets", "List the looks that --preset knows");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return endParsing(app, error);
    }
    if (render->parsed()) return runRender(options);
    if (module->parsed()) return runModule(moduleOptions);
    if (presets->parsed()) return runPresets();
    return level->parsed() ? runLevel(levelOptions) : runParams(json);
}

}  // namespace

int runCommandLine(int argc, const char* const* argv) {
    try {
        return parseAndRun(argc, argv);
    } catch (const UsageError& error) {
        return complain(error.what(), kWrongCommandLine);
    } catch (const std::bad_alloc&) {
        return complain("there is not enough memory for frames of this size.", kFailed);
    } catch (const std::exception& error) {
        return complain(error.what(), kFailed);
    }
}

}  // namespace ruvex::cli
