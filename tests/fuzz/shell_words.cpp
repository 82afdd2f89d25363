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
