#include "cli/whole_sequence.h"

#include <filesystem>

#include "files/numbered_path.h"
#include "media/file_kind.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

/// A file name without its folder, around its last number before the extension.
struct NumberedName {
    std::string before;
    std::string digits;
    std::string after;
};

std::optional<NumberedName> splitNumber(const fs::path& file) {
    const std::string name = file.filename().string();
    std::size_t end = file.stem().string().size();
    while (end > 0 && !isDigit(name[end - 1])) --end;
    std::size_t first = end;
    while (first > 0 && isDigit(name[first - 1])) --first;
    // Longer numbers are no frame numbers; a percent sign would have a meaning in the pattern.
    constexpr std::size_t kMostDigits = 9;
    const std::size_t count = end - first;
    if (count == 0 || count > kMostDigits || name.find('%') != std::string::npos) {
        return std::nullopt;
    }
    return NumberedName{name.substr(0, first), name.substr(first, count), name.substr(end)};
}

/// The sequence that a numbered file belongs to; empty for a name without a number.
std::string patternOf(const std::string& file) {
    const auto name = splitNumber(file);
    if (!name) return "";
    const bool padded = name->digits.size() > 1 && name->digits[0] == '0';
    const std::string field = padded ? "%0" + std::to_string(name->digits.size()) + "d" : "%d";
    return (fs::path(file).parent_path() / (name->before + field + name->after)).string();
}

/// Whether the file and the one of the next number exist.
bool hasNext(const std::string& file, const std::string& pattern) {
    std::error_code ignored;
    const std::int64_t number = std::stoll(splitNumber(file)->digits);
    const files::NumberedPath sequence(pattern);
    return fs::exists(file, ignored) && fs::exists(sequence.file(number + 1), ignored);
}

}  // namespace

std::optional<RenderOptions> wholeSequence(const RenderOptions& options) {
    const std::string& input = options.inputs.front();
    if (!media::isStill(media::fileKind(input))) return std::nullopt;
    const std::string pattern = patternOf(input);
    if (pattern.empty() || !hasNext(input, pattern)) return std::nullopt;
    RenderOptions whole = options;
    whole.inputs = {pattern};
    if (!media::isStill(media::fileKind(options.output))) return whole;
    if (!files::NumberedPath(options.output).isPattern()) whole.output = patternOf(options.output);
    return whole.output.empty() ? std::nullopt : std::optional(whole);
}

std::string wholeSequenceText(const RenderOptions& options, const std::string& command) {
    return options.inputs.front() +
           " is one picture of a sequence. To render all of it: " + command;
}

}  // namespace ruvex::cli
