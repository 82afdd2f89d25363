#include "tests/fuzz/typed_line.h"

#include <algorithm>

#include "cli/commands.h"
#include "cli/shell_text.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/shell_words.h"

namespace ruvex::fuzz {
namespace {

std::string valueText(bool value) {
    return value ? "on" : "off";
}

std::string valueText(const std::string& value) {
    return value;
}

std::string valueText(const std::vector<std::string>& values) {
    std::string text;
    for (const std::string& value : values) text += value + '\n';
    return text;
}

/// The values, one a line, where "./-k" is "-k".
std::string withoutFolders(const std::string& values) {
    std::string text;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool lineBegins = i == 0 || values[i - 1] == '\n';
        if (lineBegins && values.compare(i, 3, "./-") == 0) i += 2;
        text += values[i];
    }
    return text;
}

}  // namespace

TypedLine::TypedLine() : commands_(cli::newCommands()) {
    for (cli::Command& one : commands_) {
        if (std::string_view(one.name) == "render") one.options = cli::renderOptions(render);
        if (std::string_view(one.name) == "level") one.options = cli::levelOptions(level);
    }
}

const cli::Command* TypedLine::type(const std::vector<std::string>& words) {
    std::vector<const char*> line = {"ruvex"};
    for (const std::string& word : words) line.push_back(word.c_str());
    line.push_back(nullptr);
    const cli::ParsedLine parsed =
        cli::parseCommandLine(commands_, static_cast<int>(line.size()) - 1, line.data());
    demand((parsed.command == nullptr) == !parsed.text.empty(), "a command or a text is meant");
    return parsed.command;
}

const cli::Command& TypedLine::command(std::string_view name) const {
    return *std::ranges::find_if(commands_, [&](const auto& one) { return one.name == name; });
}

std::vector<std::string> TypedLine::valuesOf(const cli::Command& command) const {
    std::vector<std::string> values;
    for (const cli::Option& option : command.options) {
        values.push_back(
            std::visit([](const auto* value) { return valueText(*value); }, option.value));
    }
    return values;
}

std::vector<std::string> TypedLine::textOf(const cli::Command& command) const {
    auto words = shellWords(cli::commandText(command.name, command.options));
    demand(words.size() >= 2 && words[0] == "ruvex", "a command line begins with the program");
    words.erase(words.begin());
    return words;
}

void demandSameValues(const std::vector<std::string>& given, const std::vector<std::string>& read) {
    demand(given.size() == read.size(), "as many options are read as given");
    for (std::size_t i = 0; i < given.size(); ++i) {
        demand(withoutFolders(given[i]) == withoutFolders(read[i]),
               "an option has the value that it was given");
    }
}

}  // namespace ruvex::fuzz
