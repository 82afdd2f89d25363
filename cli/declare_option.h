// Short forms for the kinds of option that commands share.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

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

/// --set and --key.
inline void addParameters(CLI::App& command, std::vector<std::string>& settings,
                          std::vector<std::string>& keys) {
    addList(command, "--set", settings, "\"NAME=VALUE\"",
            "A parameter by its label; enumerations by label or number, check boxes on or off. "
            "Repeatable");
    addList(command, "--key", keys, "\"NAME=T:V T:V ...\"",
            "Keys of a real parameter, seconds and value; linear in between. Repeatable");
}

}  // namespace ruvex::cli
