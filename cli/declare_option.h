// Short forms for the kinds of option that commands share.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/parameter_choice.h"

namespace ruvex::cli {

/// An option with one value, kept as text; `type` is what the help calls the value.
inline void addText(CLI::App& command, const char* name, std::string& value, const char* type,
                    const char* help) {
    command.add_option(name, value, help)->type_name(type);
}

/// Given again for each value; never takes the word after the next.
inline void addList(CLI::App& command, const char* name, std::vector<std::string>& values,
                    const char* type, const char* help) {
    command.add_option(name, values, help)->type_name(type)->allow_extra_args(false);
}

/// --preset, --set and --key.
inline void addParameters(CLI::App& command, ParameterOptions& options) {
    addText(command, "--preset", options.preset, "NAME",
            "One of the looks of 'ruvex presets'; --set and --key go over it");
    addList(command, "--set", options.settings, "\"NAME=VALUE\"",
            "A parameter by its label; enumerations by label or number, check boxes on or off. "
            "Repeatable");
    addList(command, "--key", options.keys, "\"NAME=T:V T:V ...\"",
            "Keys of a real parameter, seconds and value; linear in between. Repeatable");
}

}  // namespace ruvex::cli
