// What kind of word an option takes, for those who complete it.

#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

enum class ValueKind {
    None,          ///< A switch.
    Choice,        ///< One of a few words, which the help names: "8|16".
    File,          ///< A file or a folder.
    PresetOrFile,  ///< A preset's name, or a file.
    Parameter,     ///< A parameter's label, an equals sign, and more.
    Text,          ///< Anything else.
};

/// By what the help calls the value.
ValueKind valueKind(const Option& option);

/// The words of a choice.
std::vector<std::string> choicesOf(const Option& option);

/// Whether it is told by its place and has no name to type.
inline bool isPlace(const Option& option) {
    return option.name[0] != '-';
}

/// "-o" and "--output" of "-o,--output"; none of what is told by its place.
std::vector<std::string> namesOf(const Option& option);

}  // namespace ruvex::cli
