#include "cli/typed_words.h"

#include <algorithm>

#include "cli/shell_text.h"
#include "cli/value_kind.h"

namespace ruvex::cli {
namespace {

const Option* findOption(const Command& command, const std::string& name) {
    const auto has = [&](const Option& option) {
        return std::ranges::count(namesOf(option), name) > 0;
    };
    const auto found = std::ranges::find_if(command.options, has);
    return found == command.options.end() ? nullptr : &*found;
}

bool isOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

TypedWord optionWord(const Command& command, const std::string& word) {
    TypedWord typed{.option = findOption(command, word), .name = word};
    const auto equals = word.find('=');
    if (typed.option != nullptr || equals == std::string::npos) return typed;
    typed.name = word.substr(0, equals);
    typed.option = findOption(command, typed.name);
    typed.value = word.substr(equals + 1);
    typed.hasValue = typed.joined = true;
    return typed;
}

bool takesValue(const TypedWord& typed) {
    return typed.option != nullptr && !typed.hasValue && *typed.option->argument != '\0';
}

}  // namespace

std::vector<TypedWord> sortWords(const Command& command, std::span<const std::string> words) {
    std::vector<TypedWord> sorted;
    for (const std::string& word : words) {
        if (!sorted.empty() && takesValue(sorted.back())) {
            sorted.back().value = word;
            sorted.back().hasValue = true;
        } else if (isOption(word)) {
            sorted.push_back(optionWord(command, word));
        } else {
            sorted.push_back({.value = word, .hasValue = true});
        }
    }
    return sorted;
}

std::string commandText(const Command& command, std::span<const TypedWord> words) {
    std::string text = std::string("ruvex ") + command.name;
    for (const TypedWord& word : words) {
        text += " " + word.name;
        if (!word.hasValue) continue;
        if (!word.isPlain()) text += word.joined ? "=" : " ";
        text += shellQuoted(word.value);
    }
    return text;
}

}  // namespace ruvex::cli
