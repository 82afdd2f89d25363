#include "cli/value_kind.h"

#include <algorithm>
#include <sstream>

namespace ruvex::cli {
namespace {

std::vector<std::string> split(const char* text, char mark) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, mark);) {
        parts.push_back(part);
    }
    return parts;
}

/// What is to be typed as it stands; what stands for something else is in capitals.
bool isWord(const std::string& text) {
    return !text.empty() && std::ranges::all_of(text, [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
    });
}

}  // namespace

ValueKind valueKind(const Option& option) {
    const std::string text = isPlace(option) ? option.name : option.argument;
    if (text.empty()) return ValueKind::None;
    if (std::ranges::all_of(split(text.c_str(), '|'), isWord)) return ValueKind::Choice;
    if (text == "NAME|FILE") return ValueKind::PresetOrFile;
    if (text.starts_with("\"NAME=")) return ValueKind::Parameter;
    for (const char* file : {"FILE", "INPUT", "OUTPUT", "SHEET", "FOLDER"}) {
        if (text.starts_with(file)) return ValueKind::File;
    }
    return ValueKind::Text;
}

std::vector<std::string> choicesOf(const Option& option) {
    return split(option.argument, '|');
}

std::vector<std::string> namesOf(const Option& option) {
    return isPlace(option) ? std::vector<std::string>() : split(option.name, ',');
}

}  // namespace ruvex::cli
