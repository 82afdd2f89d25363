#include "cli/command_parser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "cli/help_text.h"
#include "cli/messages.h"
#include "cli/slips.h"
#include "cli/usage_error.h"
#include "files/words.h"

namespace ruvex::cli {
namespace {

/// The parser, and where in it each command stands.
struct Parser {
    CLI::App app{"", "ruvex"};
    std::vector<std::pair<const CLI::App*, const Command*>> declared;

    explicit Parser(const std::vector<Command>& commands) {
        // Commands have the same two flags. The parser reports them as two kinds of exceptions.
        app.set_help_flag("-h");
        app.set_help_all_flag("--help");
        app.set_version_flag("--version", "ruvex " RUVEX_VERSION);
        app.require_subcommand(1);
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

/// The command line ended with the first word of commands, or goes on with none of them.
std::string familyFault(const std::string& family, const std::vector<std::string>& left) {
    const std::string help = "'ruvex " + family + " --help' lists them.";
    if (left.empty()) return "A command is required after 'ruvex " + family + "'. " + help;
    return "There is no command " + files::inQuotes(family + " " + left.front()) + ". " + help;
}

/// The first word of commands, where no command follows it; empty for other lines.
std::string familyAlone(const CLI::App& app) {
    const std::vector<CLI::App*> parsed = app.get_subcommands();
    const bool alone = parsed.size() == 1 && parsed.front()->get_subcommands().empty() &&
                       parsed.front()->get_require_subcommand_min() > 0;
    return alone ? parsed.front()->get_name() : std::string();
}

/// What is wrong with the words.
std::string faultOf(const CLI::App& app, const CLI::ParseError& error) {
    // In the order in which they were typed; the parser's own sentence reverses them.
    const std::vector<std::string> left = app.remaining(true);
    if (const std::string family = familyAlone(app); !family.empty()) {
        return familyFault(family, left);
    }
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
        const bool tooMany = text.find("received") != std::string::npos;
        return text.substr(0, text.find(':')) +
               (tooMany ? " is given twice." : " lacks its value.");
    }
    if (left.empty() || dynamic_cast<const CLI::ExtrasError*>(&error) == nullptr) {
        return std::string(error.what()) + ".";
    }
    std::string text =
        left.size() == 1 ? "This word is not expected:" : "These words are not expected:";
    for (const std::string& word : left) text += " " + word;
    return text + ".";
}

/// The command that was named; null if there is none.
const Command* namedCommand(const Parser& parser) {
    for (const auto& [app, command] : parser.declared) {
        if (app->parsed()) return command;
    }
    return nullptr;
}

/// The text of help or version, which the parser reports as errors; empty for other errors.
std::string textAskedFor(const Parser& parser, const std::vector<Command>& commands,
                         const CLI::ParseError& error) {
    if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) return "";
    const bool isLong = dynamic_cast<const CLI::CallForAllHelp*>(&error) != nullptr;
    if (!isLong && dynamic_cast<const CLI::CallForHelp*>(&error) == nullptr) {
        return std::string(error.what()) + "\n";
    }
    const HelpLength length = isLong ? HelpLength::Long : HelpLength::Short;
    const Command* command = namedCommand(parser);
    if (command != nullptr) return commandHelp(*command, length);
    const std::string family = familyAlone(parser.app);
    return family.empty() ? programHelp(commands, length) : familyHelp(commands, family, length);
}

bool lacks(bool) {
    return false;
}

bool lacks(const std::string& text) {
    return text.empty();
}

bool lacks(const std::vector<std::string>& texts) {
    return std::ranges::count(texts, "") > 0;
}

/// An empty text stands for none, which is not enough here.
void checkRequired(const Command& command) {
    for (const Option& option : command.options) {
        if (option.required &&
            std::visit([](const auto* value) { return lacks(*value); }, option.value)) {
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
        std::string text = textAskedFor(parser, commands, error);
        if (!text.empty()) return {nullptr, std::move(text)};
        refuse(faultOf(parser.app, error), commands, {argv + 1, argv + argc});
    }
    const Command* meant = namedCommand(parser);
    checkRequired(*meant);
    return {meant, {}};
}

std::string helpText(const std::vector<Command>& commands, const std::string& name) {
    if (name.empty()) return programHelp(commands, HelpLength::Long);
    for (const Command& command : commands) {
        if (name == command.name) return commandHelp(command, HelpLength::Long);
    }
    if (isFamily(commands, name)) return familyHelp(commands, name, HelpLength::Long);
    refuse(unknownCommand(name), commands, {name});
}

}  // namespace ruvex::cli
