#include "farm/sbatch_options.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ruvex::farm {
namespace {

struct SbatchOption {
    std::string_view name;
    char letter;  ///< Its short form; '\0' where there is none.
};

/// The farm gives them itself, or relies on what happens without them.
constexpr std::array<SbatchOption, 17> kReserved = {{
    {"--array", 'a'},
    {"--chdir", 'D'},
    {"--clusters", 'M'},
    {"--error", 'e'},
    {"--help", 'h'},
    {"--job-name", 'J'},
    {"--no-requeue", '\0'},
    {"--open-mode", '\0'},
    {"--output", 'o'},
    {"--parsable", '\0'},
    {"--requeue", '\0'},
    {"--signal", '\0'},
    {"--test-only", '\0'},
    {"--usage", '\0'},
    {"--version", 'V'},
    {"--wait", 'W'},
    {"--wrap", '\0'},
}};

constexpr SbatchOption kDependency = {"--dependency", 'd'};

/// The first letter of a short option that takes a value, or else its last: 'J' of "-HJname".
char letterOf(const std::string& word) {
    constexpr std::string_view kWithoutValue = "HOQksv";
    const std::size_t at = word.find_first_not_of(kWithoutValue, 1);
    return word[at == std::string::npos ? word.size() - 1 : at];
}

/// Whether sbatch takes the word for this option, whose name may be cut short: "--arr=0-3".
bool means(const std::string& word, const SbatchOption& option) {
    if (!word.starts_with("--")) {
        return word.size() > 1 && option.letter != '\0' && letterOf(word) == option.letter;
    }
    const std::string name = word.substr(0, word.find('='));
    return option.name.starts_with(name);
}

bool isOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

/// Whether the value of the option may be the next word: "-c", "--mem".
bool mayTakeNext(const std::string& word) {
    if (!isOption(word)) return false;
    return word.starts_with("--") ? word.find('=') == std::string::npos : word.size() == 2;
}

struct SortedWords {
    std::vector<std::string> dependency;
    std::vector<std::string> others;
};

SortedWords sorted(const std::vector<std::string>& words) {
    SortedWords sorted;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool depends = isOption(words[i]) && means(words[i], kDependency);
        std::vector<std::string>& list = depends ? sorted.dependency : sorted.others;
        list.push_back(words[i]);
        if (depends && mayTakeNext(words[i]) && i + 1 < words.size()) list.push_back(words[++i]);
    }
    return sorted;
}

}  // namespace

std::string faultIn(const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (!isOption(word)) {
            if (i > 0 && mayTakeNext(words[i - 1])) continue;
            return "'" + word + "' is no option of sbatch: they begin with -, as --mem=8G.";
        }
        const auto found = std::ranges::find_if(
            kReserved, [&](const SbatchOption& option) { return means(word, option); });
        if (found == kReserved.end()) continue;
        return "'" + word + "' cannot be given: the farm needs " + std::string(found->name) +
               " of sbatch as it sets it.";
    }
    return "";
}

std::vector<std::string> dependencyIn(const std::vector<std::string>& words) {
    return sorted(words).dependency;
}

std::vector<std::string> withoutDependency(const std::vector<std::string>& words) {
    return sorted(words).others;
}

}  // namespace ruvex::farm
