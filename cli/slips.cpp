#include "cli/slips.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "cli/typed_parameter.h"
#include "cli/typed_words.h"
#include "cli/usage_error.h"
#include "cli/value_kind.h"
#include "files/words.h"
#include "looks/look_library.h"
#include "parameters/label_match.h"

namespace ruvex::cli {
namespace {

using Words = std::vector<TypedWord>;

constexpr const char* kQuotes = "A value with spaces has to be in quotation marks.";
constexpr const char* kOutput = "-o has to stand before the name of the result.";

bool exists(const std::string& file) {
    std::error_code ignored;
    return std::filesystem::exists(file, ignored);
}

bool hasExtension(const std::string& file) {
    return std::filesystem::path(file).has_extension();
}

/// Whether --set or --key takes the text.
bool isParameter(const std::string& option, const std::string& text) {
    std::vector<std::string> ignored;
    try {
        option == "--key" ? void(parseAnimation(text, ignored)) : void(parseSetting(text, ignored));
        return true;
    } catch (const UsageError&) {
        return false;
    }
}

bool contains(const std::string& text, char mark) {
    return text.find(mark) != std::string::npos;
}

/// A value of --set or --key, or a wrong one that has become name and value by its last word.
std::optional<std::string> meantParameter(const TypedWord& word, const std::string& text) {
    const std::string lastWord = text.substr(text.rfind(' ') + 1);
    const bool named = !contains(word.value, '=') && contains(lastWord, '=');
    if (named || isParameter(longName(*word.option), text)) return text;
    return std::nullopt;
}

/// A file, or a look that is more similar to the text than to the value alone.
std::optional<std::string> meantLook(const TypedWord& word, const std::string& text) {
    if (exists(word.value)) return std::nullopt;
    if (exists(text)) return text;
    const looks::LookLibrary library = looks::readLookLibrary();
    const std::vector<std::string_view> names = library.names();
    const std::string_view look = similarLabel(text, names);
    if (look.empty() || labelDistance(text, look) >= labelDistance(word.value, look)) {
        return std::nullopt;
    }
    return std::string(look);
}

/// The value that was meant by `text`, the option's value and some words after it; empty if it is
/// none.
std::optional<std::string> meantValue(const TypedWord& word, const std::string& text) {
    switch (valueKind(*word.option)) {
        case ValueKind::Parameter:
            return meantParameter(word, text);
        case ValueKind::PresetOrFile:
            return meantLook(word, text);
        default:
            return std::nullopt;
    }
}

/// The number of plain words from `first` on.
std::size_t plainFrom(const Words& words, std::size_t first) {
    std::size_t count = 0;
    while (first + count < words.size() && words[first + count].isPlain()) ++count;
    return count;
}

/// The values of `count` words from `first` on, with spaces between them.
std::string textOf(const Words& words, std::size_t first, std::size_t count) {
    std::string text = words[first].value;
    for (std::size_t i = 1; i < count; ++i) text += " " + words[first + i].value;
    return text;
}

/// Puts one value in the place of that of word `first` and of the `more` words after it.
void join(Words& words, std::size_t first, std::size_t more, const std::string& value) {
    words[first].value = value;
    const auto begin = words.begin() + static_cast<std::ptrdiff_t>(first) + 1;
    words.erase(begin, begin + static_cast<std::ptrdiff_t>(more));
}

/// Joins the value of a parameter or preset with as many of the plain words after it as make sense.
bool joinValue(Words& words, std::size_t at) {
    if (words[at].option == nullptr || !words[at].hasValue) return false;
    for (std::size_t more = plainFrom(words, at + 1); more > 0; --more) {
        if (const auto value = meantValue(words[at], textOf(words, at, more + 1))) {
            join(words, at, more, *value);
            return true;
        }
    }
    return false;
}

/// The number of plain words that the command takes.
std::size_t placesOf(const Command& command) {
    return static_cast<std::size_t>(std::ranges::count_if(command.options, isPlace));
}

std::size_t plainCount(const Words& words) {
    return static_cast<std::size_t>(std::ranges::count_if(words, &TypedWord::isPlain));
}

bool lacksOutput(const Command& command, const Words& words) {
    const auto isOutput = [](const Option& option) {
        return option.required && longName(option) == "--output";
    };
    const auto found = std::ranges::find_if(command.options, isOutput);
    return found != command.options.end() &&
           std::ranges::none_of(words,
                                [&](const TypedWord& word) { return word.option == &*found; });
}

/// Joins plain words that together are the name of an existing file.
bool joinFile(Words& words, std::size_t at) {
    for (std::size_t count = plainFrom(words, at); count > 1; --count) {
        const std::string text = textOf(words, at, count);
        if (!exists(text)) continue;
        join(words, at, count - 1, text);
        return true;
    }
    return false;
}

/// Joins the name of a file that an option writes or reads, "-o my clip.mp4".
bool joinNamedFile(Words& words, std::size_t at) {
    const TypedWord& word = words[at];
    if (word.option == nullptr || valueKind(*word.option) != ValueKind::File) return false;
    if (hasExtension(word.value) || plainFrom(words, at + 1) == 0) return false;
    if (!hasExtension(words[at + 1].value)) return false;
    join(words, at, 1, textOf(words, at, 2));
    return true;
}

/// Joins plain words up to one with an extension, as in "my clip.mp4".
bool joinToExtension(Words& words, std::size_t at) {
    const std::size_t count = plainFrom(words, at);
    for (std::size_t i = 0; i < count; ++i) {
        if (!hasExtension(words[at + i].value)) continue;
        if (i > 0) join(words, at, i, textOf(words, at, i + 1));
        return i > 0;
    }
    return false;
}

template <class Join>
bool joinFirst(Words& words, Join joinAt) {
    for (std::size_t at = 0; at < words.size(); ++at) {
        if (joinAt(words, at)) return true;
    }
    return false;
}

/// The last plain word becomes the result's name, unless it is a file that exists.
void addOutput(Words& words) {
    const auto isPlain = [](const TypedWord& word) { return word.isPlain(); };
    const auto last = std::find_if(words.rbegin(), words.rend(), isPlain);
    if (exists(last->value)) {
        words.push_back({.name = "-o", .value = "results/", .hasValue = true});
    } else {
        last->name = "-o";
    }
}

/// Names similar options in the place of unknown ones.
bool correctOptions(const Command& command, Words& words) {
    std::vector<std::string> names = {"--help"};
    for (const Option& option : command.options) {
        if (!isPlace(option)) names.push_back(longName(option));
    }
    const std::vector<std::string_view> known(names.begin(), names.end());
    bool corrected = false;
    for (TypedWord& word : words) {
        const std::string_view similar =
            word.isUnknown() ? similarLabel(word.name, known) : std::string_view();
        if (similar.empty()) continue;
        word.name = similar;
        corrected = true;
    }
    return corrected;
}

std::string didYouMean(const std::string& command) {
    return "Did you mean: " + command;
}

std::string inCommand(const Command& command, std::span<const std::string> typed) {
    Words words = sortWords(command, typed);
    std::string reason;
    if (correctOptions(command, words)) {
        // An option that is known now takes the word after it.
        return didYouMean(commandText(command, words));
    }
    for (std::size_t at = 0; at < words.size(); ++at) {
        if (joinValue(words, at)) reason = kQuotes;
    }
    const bool noOutput = lacksOutput(command, words);
    const auto tooMany = [&] {
        return plainCount(words) > placesOf(command) + (noOutput ? 1u : 0u);
    };
    while (tooMany() && (joinFirst(words, joinFile) || joinFirst(words, joinNamedFile) ||
                         joinFirst(words, joinToExtension))) {
        reason = kQuotes;
    }
    if (noOutput && plainCount(words) == placesOf(command) + 1) {
        addOutput(words);
        reason += reason.empty() ? kOutput : std::string(" ") + kOutput;
    }
    if (reason.empty()) return "";
    return reason + " " + didYouMean(commandText(command, words));
}

/// Instead of the second word of a command's name.
std::string inFamily(const std::vector<Command>& commands, std::span<const std::string> words) {
    std::vector<std::string> names;
    for (const Command& command : commands) {
        if (familyOf(command) == words.front()) names.push_back(wordsOf(command).back());
    }
    const std::vector<std::string_view> known(names.begin(), names.end());
    const std::string_view similar =
        words.size() > 1 ? similarLabel(words[1], known) : std::string_view();
    if (similar.empty()) return "";
    return "Did you mean " + files::inQuotes(words.front() + " " + std::string(similar)) + "?";
}

/// Instead of the name of a command.
std::string asCommand(const std::vector<Command>& commands, std::span<const std::string> words) {
    std::vector<std::string_view> names;
    for (const Command& command : commands) names.emplace_back(command.name);
    const std::string& first = words.front();
    if (first.starts_with('-')) {
        static constexpr std::string_view kOptions[] = {"--help", "--version"};
        const std::string_view similar = similarLabel(first, kOptions);
        return similar.empty() || first == similar ? ""
                                                   : didYouMean("ruvex " + std::string(similar));
    }
    if (const std::string_view similar = similarLabel(first, names); !similar.empty()) {
        return "Did you mean " + files::inQuotes(similar) + "?";
    }
    const auto render = std::ranges::find(names, "render");
    if (render == names.end() || !(hasExtension(first) || exists(first))) return "";
    const Command& command = commands[static_cast<std::size_t>(render - names.begin())];
    Words clip = sortWords(command, words);
    if (lacksOutput(command, clip)) {
        if (plainCount(clip) == 1) clip.push_back({.value = "result.mp4", .hasValue = true});
        addOutput(clip);
    }
    return didYouMean(commandText(command, clip));
}

}  // namespace

std::string meantInstead(const std::vector<Command>& commands, std::span<const std::string> words) {
    // More words are no slip of the hand, and trying all ways to join them would take long.
    constexpr std::size_t kMostWords = 100;
    if (words.empty() || words.size() > kMostWords) return "";
    for (const Command& command : commands) {
        const std::vector<std::string> name = wordsOf(command);
        if (words.size() < name.size() || !std::ranges::equal(name, words.first(name.size()))) {
            continue;
        }
        return inCommand(command, words.subspan(name.size()));
    }
    return isFamily(commands, words.front()) ? inFamily(commands, words)
                                             : asCommand(commands, words);
}

}  // namespace ruvex::cli
