#include "cli/command_table.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <sstream>

#include "cli/value_kind.h"

namespace ruvex::cli {
namespace {

CLI::Option* declareValue(CLI::App& parser, const Option& option, bool* target) {
    return parser.add_flag(option.name, *target, option.help);
}

CLI::Option* declareValue(CLI::App& parser, const Option& option, std::string* target) {
    return parser.add_option(option.name, *target, option.help);
}

/// An option is given again for each value, and never takes the word after the next.
CLI::Option* declareValue(CLI::App& parser, const Option& option,
                          std::vector<std::string>* target) {
    return parser.add_option(option.name, *target, option.help)->allow_extra_args(isPlace(option));
}

void declareOption(CLI::App& parser, const Option& option) {
    CLI::Option* declared = std::visit(
        [&](auto* target) { return declareValue(parser, option, target); }, option.value);
    if (*option.argument != '\0') {
        declared->type_name(option.argument);
    }
    if (option.required) {
        declared->required();
    }
}

/// What an option needs may stand behind it in the table.
void declareNeeds(CLI::App& parser, const OptionTable& options) {
    for (const Option& option : options) {
        if (option.needs != nullptr) {
            parser.get_option(longName(option))->needs(parser.get_option(option.needs));
        }
    }
}

/// What the commands of a family are added to.
CLI::App& parentOf(CLI::App& parser, const std::string& family) {
    if (family.empty()) return parser;
    const auto known =
        parser.get_subcommands([&](const CLI::App* app) { return app->get_name() == family; });
    if (!known.empty()) return *known.front();
    CLI::App& parent = *parser.add_subcommand(family);
    parent.require_subcommand(1);
    return parent;
}

}  // namespace

std::string longName(const Option& option) {
    const std::string names = option.name;
    return names.substr(names.find(',') + 1);
}

std::vector<std::string> wordsOf(const Command& command) {
    std::istringstream text(command.name);
    return {std::istream_iterator<std::string>(text), {}};
}

std::string familyOf(const Command& command) {
    const std::vector<std::string> words = wordsOf(command);
    return words.size() > 1 ? words.front() : std::string();
}

bool isFamily(const std::vector<Command>& commands, const std::string& word) {
    return std::ranges::any_of(commands, [&](const Command& command) {
        return !word.empty() && familyOf(command) == word;
    });
}

CLI::App& declareCommand(CLI::App& parser, const Command& command) {
    CLI::App& parent = parentOf(parser, familyOf(command));
    CLI::App& declared = *parent.add_subcommand(wordsOf(command).back(), command.summary);
    for (const Option& option : command.options) {
        declareOption(declared, option);
    }
    declareNeeds(declared, command.options);
    return declared;
}

}  // namespace ruvex::cli
