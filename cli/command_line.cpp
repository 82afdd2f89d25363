#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <new>
#include <utility>
#include <vector>

#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

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

/// The parser, and where in it each command stands.
struct Parser {
    CLI::App app{"Faulty television: runs clips through the V_Ruvex effect.", "ruvex"};
    std::vector<std::pair<const CLI::App*, const Command*>> declared;

    Parser() {
        app.set_version_flag("--version", "ruvex " RUVEX_VERSION);
        app.require_subcommand(1);
        app.footer(exitStatusText());
        for (const Command& command : commands()) {
            declared.emplace_back(&declareCommand(app, command), &command);
        }
    }
};

int parseAndRun(int argc, const char* const* argv) {
    Parser parser;
    try {
        parser.app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return endParsing(parser.app, error);
    }
    const auto meant =
        std::ranges::find_if(parser.declared, [](auto& one) { return one.first->parsed(); });
    return meant->second->run();
}

}  // namespace

std::string helpText(const std::string& name) {
    const Parser parser;
    if (name.empty()) {
        return parser.app.help();
    }
    for (const auto& [app, command] : parser.declared) {
        if (name == command->name) return app->help("ruvex");
    }
    throw UsageError("There is no command " + inQuotes(name) + ". 'ruvex --help' lists them.");
}

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
