#include "cli/command_table.h"

#include <CLI/CLI.hpp>

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

}  // namespace

std::string longName(const Option& option) {
    const std::string names = option.name;
    return names.substr(names.find(',') + 1);
}

CLI::App& declareCommand(CLI::App& parser, const Command& command) {
    CLI::App& declared = *parser.add_subcommand(command.name, command.summary);
    for (const Option& option : command.options) {
        declareOption(declared, option);
    }
    declareNeeds(declared, command.options);
    return declared;
}

}  // namespace ruvex::cli
