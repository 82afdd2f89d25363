#include "cli/command_parser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>
#include <utility>

#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/slips.h"
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

/// A refusal, with what was probably meant.
[[noreturn]] void refuse(const std::string& sentence, const std::vector<Command>& commands,
                         const std::vector<std::string>& words) {
    const std::string meant = meantInstead(commands, words);
    throw UsageError(meant.empty() ? sentence : sentence + " " + meant);
}

std::string unknownCommand(const std::string& name) {
    return "There is no command " + files::inQuotes(name) + ". 'ruvex --help' lists them.";
}

/// What is wrong with the words.
std::string faultOf(const CLI::App& app, const CLI::ParseError& error) {
    // In the order in which they were typed; the parser's own sentence turns them round.
    const std::vector<std::string> left = app.remaining(true);
    if (app.get_subcommands().empty() && !left.empty()) {
        return left.front().starts_with('-')
                   ? "There is no option " + files::inQuotes(left.front()) + "."
                   : unknownCommand(left.front());
    }
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr &&
        app.get_subcommands().empty()) {
        return "A command is required. 'ruvex --help' lists them.";
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        const std::string text = error.what();
        return text.substr(0, text.find(':')) + " lacks its value.";
    }
    if (left.empty() || dynamic_cast<const CLI::ExtrasError*>(&error) == nullptr) {
        return std::string(error.what()) + ".";
    }
    std::string text =
        left.size() == 1 ? "This word is not expected:" : "These words are not expected:";
    for (const std::string& word : left) text += " " + word;
    return text + ".";
}

/// The text of help or version, which the parser reports as errors.
std::string textAskedFor(const CLI::App& app, const CLI::ParseError& error) {
    std::ostringstream text;
    app.exit(error, text, text);
    return text.str();
}

bool isRequestForText(const CLI::ParseError& error) {
    return error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
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
        if (isRequestForText(error)) return {nullptr, textAskedFor(parser.app, error)};
        refuse(faultOf(parser.app, error), commands, {argv + 1, argv + argc});
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
    refuse(unknownCommand(name), commands, {name});
}

}  // namespace ruvex::cli
