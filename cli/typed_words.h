// The words of a command line, sorted by the options of a command, whether they are right or not.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/command_table.h"

namespace ruvex::cli {

/// An option with its value, or a word without an option.
struct TypedWord {
    const Option* option = nullptr;  ///< Null for a word without an option and an unknown option.
    std::string name{};              ///< "--set" as it was typed; empty without an option.
    std::string value{};             ///< Empty for a switch.
    bool hasValue = false;
    bool joined = false;  ///< Typed as --name=value.

    bool isPlain() const { return name.empty(); }
    bool isUnknown() const { return option == nullptr && !isPlain(); }
};

/// Reads the words after the command's name. An unknown option takes no value.
std::vector<TypedWord> sortWords(const Command& command, std::span<const std::string> words);

/// "ruvex NAME ..." with the words in their order, quoted where a shell needs it.
std::string commandText(const Command& command, std::span<const TypedWord> words);

}  // namespace ruvex::cli
