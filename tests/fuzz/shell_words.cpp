#include "tests/fuzz/shell_words.h"

#include "tests/fuzz/fuzz.h"

namespace ruvex::fuzz {
namespace {

/// Letters that mean themselves wherever they stand in a word. '=' too where a word is no command.
bool isItself(char letter) {
    constexpr std::string_view kMarks = "%+,-./:=@_";
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || kMarks.find(letter) != std::string_view::npos;
}

char takeLetter(std::string_view& line) {
    demand(!line.empty(), "a quotation ends");
    const char letter = line.front();
    line.remove_prefix(1);
    return letter;
}

/// The byte of three octal digits, of which the first has been taken.
char takeOctal(char first, std::string_view& line) {
    int value = first - '0';
    for (int i = 0; i < 2; ++i) {
        const char digit = takeLetter(line);
        demand(digit >= '0' && digit <= '7', "a byte has three digits");
        value = value * 8 + (digit - '0');
    }
    return static_cast<char>(value);
}

/// Takes the rest of a quotation that began with $' and knows escapes.
std::string takeEscaped(std::string_view& line) {
    std::string word;
    while (true) {
        const char letter = takeLetter(line);
        if (letter == '\'') return word;
        if (letter != '\\') {
            word += letter;
            continue;
        }
        const char escaped = takeLetter(line);
        demand(escaped == '\'' || escaped == '\\' || (escaped >= '0' && escaped <= '3'),
               "an escape is a known one");
        word += escaped >= '0' && escaped <= '3' ? takeOctal(escaped, line) : escaped;
    }
}

/// Takes one word off the front of the line.
std::string takeWord(std::string_view& line) {
    std::string word;
    while (!line.empty() && line.front() != ' ') {
        const char letter = line.front();
        line.remove_prefix(1);
        if (letter == '\'') {
            const auto end = line.find('\'');
            demand(end != std::string_view::npos, "a quotation ends");
            word += line.substr(0, end);
            line.remove_prefix(end + 1);
        } else if (letter == '$' && line.starts_with('\'')) {
            line.remove_prefix(1);
            word += takeEscaped(line);
        } else if (letter == '\\') {
            demand(!line.empty() && line.front() != '\n', "a backslash stands before a letter");
            word += line.front();
            line.remove_prefix(1);
        } else {
            demand(isItself(letter), "what a shell has a use for is quoted");
            word += letter;
        }
    }
    return word;
}

}  // namespace

std::vector<std::string> shellWords(std::string_view line) {
    std::vector<std::string> words;
    while (!line.empty()) {
        if (line.front() == ' ') {
            line.remove_prefix(1);
            demand(!line.empty() && line.front() != ' ', "words stand one blank apart");
        }
        words.push_back(takeWord(line));
    }
    return words;
}

}  // namespace ruvex::fuzz
