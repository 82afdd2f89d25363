#include "cli/shell_text.h"

#include <array>
#include <cstdio>

#include "cli/value_kind.h"
#include "files/words.h"

namespace ruvex::cli {
namespace {

constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789%+,-./:=@_";

/// "-o", as the examples have it; other options by their long names, which say what they are.
std::string shownName(const Option& option) {
    const std::string name = namesOf(option).front();
    return name == "-o" ? name : longName(option);
}

void appendValue(std::string& text, const Option& option, const std::string& value) {
    text += ' ';
    if (isPlace(option)) {
        // A name that begins as options do is a file all the same.
        text += shellQuoted(value.size() > 1 && value[0] == '-' ? std::string("./").append(value)
                                                                : value);
    } else if (value.starts_with('-')) {
        // Only the longer form takes a value after an equals sign.
        text.append(longName(option)).append("=").append(shellQuoted(value));
    } else {
        text.append(shownName(option)).append(" ").append(shellQuoted(value));
    }
}

void append(std::string& text, const Option& option, const std::string& value) {
    if (!value.empty()) appendValue(text, option, value);
}

void append(std::string& text, const Option& option, bool on) {
    if (on) text.append(" ").append(longName(option));
}

void append(std::string& text, const Option& option, const std::vector<std::string>& values) {
    for (const std::string& value : values) {
        appendValue(text, option, value);
    }
}

/// In the quotation marks that know escapes.
std::string escapedWord(std::string_view word) {
    std::string text = "$'";
    for (const char letter : word) {
        if (letter == '\'' || letter == '\\') {
            text.append("\\").append(1, letter);
        } else if (letter >= ' ' && letter <= '~') {
            text += letter;
        } else {
            // Three digits always, so that a digit that follows is not read as one more.
            std::array<char, 5> octal{};
            std::snprintf(octal.data(), octal.size(), "\\%03o", static_cast<unsigned char>(letter));
            text += octal.data();
        }
    }
    return text + "'";
}

}  // namespace

std::string shellQuoted(std::string_view word) {
    if (!files::isPrintable(word)) return escapedWord(word);
    if (!word.empty() && word.find_first_not_of(kPlain) == std::string_view::npos) {
        return std::string(word);
    }
    std::string text = "'";
    for (const char letter : word) {
        text += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    }
    return text + "'";
}

std::string commandText(std::string_view name, const OptionTable& options) {
    std::string text = "ruvex ";
    text += name;
    for (const Option& option : options) {
        std::visit([&](const auto* value) { append(text, option, *value); }, option.value);
    }
    return text;
}

}  // namespace ruvex::cli
