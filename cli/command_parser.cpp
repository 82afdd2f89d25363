#include "cli/command_parser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>
#include <utility>

#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/usage_error.h"
#include "files/words.h"

namespace ruvex::cli {
namespace {

/// The parser, and where in it each command stands.
struct Parser {
    CLI::App app{"Faulty television: runs clips through the V_Ruvex effect.", "ruvex"};
    std::vector<std::pair<const CLI::App*, const Command*>> declared;

    explicit Parser(const std::vector<Command>& commands) {
        app.set_version_flag("--version", "ruvex " RUVEX_VERSION);
        app.require_subcommand(1);
        app.footer(exitStatusText());
        for (const Command& command : commands) {
            declared.emplace_back(&declareCommand(app, command), &command);
        }
    }
};

std::string unknownCommand(const std::string& name) {
    return "There is no command " + files::inQuotes(name) + ". 'ruvex --help' lists them.";
}

/// The first word, where it is the name of none of the commands. To the parser there is just none.
void checkCommand(const CLI::App& app) {
    const std::vector<std::string> words = app.remaining();
    if (app.get_subcommands().empty() && !words.empty() && !words.front().starts_with('-')) {
        throw UsageError(unknownCommand(words.front()));
    }
}

/// Help and version are no failures; everything else is one of the command line.
std::string textAskedFor(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) {
        checkCommand(app);
        throw UsageError(error.what());
    }
    std::ostringstream text;
    app.exit(error, text, text);
    return text.str();
}

/// An empty text stands for none, which is not enough here.
void checkRequired(const Command& command) {
    for (const Option& option : command.options) {
        const auto* text = std::get_if<std::string*>(&option.value);
        if (option.required && text != nullptr && (*text)->empty()) {
            throw UsageError(longName(option) + " is required, but empty.");
        }
    }
}

}  // namespace

ParsedLine parseCommandLine(const std::vector<Command>& commands, int argc,
                            const char* const* argv) {
    Parser parser(commands);
    try {
        parser.app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return {nullptr, textAskedFor(parser.app, error)};
    }
    const auto meant =
        std::ranges::find_if(parser.declared, [](auto& one) { return one.first->parsed(); });
    checkRequired(*meant->second);
    return {meant->second, {}};
}

std::string helpText(const std::vector<Command>& commands, const std::string& name) {
    const Parser parser(commands);
    if (name.empty()) {
        return parser.app.help();
    }
    for (const auto& [app, command] : parser.declared) {
        if (name == command->name) return app->help("ruvex");
    }
    throw UsageError(unknownCommand(name));
}

}  // namespace ruvex::cli
