#include "parameters/parameter_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "parameters/label_match.h"
#include "parameters/parameter_table.h"

namespace ruvex {
namespace {

using Severity = ParsedValue::Severity;

constexpr std::string_view kOnWords[] = {"on", "true", "yes", "1"};
constexpr std::string_view kOffWords[] = {"off", "false", "no", "0"};

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Parses the whole text as a number of type T. No value if there is anything before or after the
/// number, or if it is out of the range of T.
template <class T>
std::optional<T> readNumber(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    T value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return value;
}

std::optional<double> readReal(std::string_view text) {
    const auto value = readNumber<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

ParsedValue failure(const ParameterRow& row, std::string_view text) {
    return {Severity::Error, 0.0,
            std::string(row.label) + " takes " + allowedValues(row) + ", not \"" +
                std::string(text) + "\"."};
}

ParsedValue outOfRange(const ParameterRow& row, std::string_view text, double value) {
    if (!row.clamp) return failure(row, text);
    const std::string used = formatNumber(renderClamp(row.id, value));
    return {Severity::Warning, value,
            std::string(row.label) + " takes " + allowedValues(row) + "; " + std::string(text) +
                " lies outside and renders as " + used + "."};
}

ParsedValue parseNumber(const ParameterRow& row, std::string_view text) {
    std::optional<double> value;
    if (isReal(row.kind)) {
        value = readReal(text);
    } else if (const auto whole = readNumber<int>(text)) {
        value = *whole;
    }
    if (!value) return failure(row, text);
    const auto range = row.enteredRange();
    if (range && !range->contains(*value)) return outOfRange(row, text, *value);
    return {Severity::Ok, *value, {}};
}

ParsedValue parseChoice(const ParameterRow& row, std::string_view text) {
    const auto matches = [&](const Choice& c) { return labelsMatch(c.label, text); };
    const auto found = std::ranges::find_if(row.choices, matches);
    if (found != row.choices.end()) {
        return {Severity::Ok, static_cast<double>(found - row.choices.begin()), {}};
    }
    const auto number = readNumber<int>(text);
    const int count = static_cast<int>(row.choices.size());
    if (!number || *number < 0 || *number >= count) return failure(row, text);
    return {Severity::Ok, static_cast<double>(*number), {}};
}

ParsedValue parseCheckBox(const ParameterRow& row, std::string_view text) {
    const auto matches = [&](std::string_view word) { return labelsMatch(word, text); };
    if (std::ranges::any_of(kOnWords, matches)) return {Severity::Ok, 1.0, {}};
    if (std::ranges::any_of(kOffWords, matches)) return {Severity::Ok, 0.0, {}};
    return failure(row, text);
}

std::string choiceList(std::span<const Choice> choices) {
    std::string list;
    for (const Choice& choice : choices) {
        if (!list.empty()) list += ", ";
        list += '"' + std::string(choice.label) + '"';
    }
    return list + " or 0.." + std::to_string(choices.size() - 1);
}

}  // namespace

ParsedValue parseValue(const ParameterRow& row, std::string_view text) {
    const std::string_view word = trimmed(text);
    if (!row.choices.empty()) return parseChoice(row, word);
    if (isCheckBox(row.kind)) return parseCheckBox(row, word);
    return parseNumber(row, word);
}

std::string formatValue(const ParameterRow& row, double value) {
    if (isCheckBox(row.kind)) return value != 0.0 ? "on" : "off";
    const double count = static_cast<double>(row.choices.size());
    if (value >= 0.0 && value < count && value == std::floor(value)) {
        return std::string(row.choices[static_cast<std::size_t>(value)].label);
    }
    return formatNumber(value);
}

std::string formatNumber(double value) {
    // Up to here write plain decimals; the shortest form would give 1e+05 for 100000.
    constexpr double kLongestPlain = 1e15;
    constexpr double kSmallestPlain = 1e-6;
    const double size = std::fabs(value);
    const bool plain = value == 0.0 || (size >= kSmallestPlain && size < kLongestPlain);
    std::array<char, 64> buffer;
    char* const begin = buffer.data();
    char* const end = begin + buffer.size();
    const auto result = plain ? std::to_chars(begin, end, value, std::chars_format::fixed)
                              : std::to_chars(begin, end, value);
    return {begin, result.ptr};
}

std::string allowedValues(const ParameterRow& row) {
    if (!row.choices.empty()) return choiceList(row.choices);
    if (isCheckBox(row.kind)) return "on or off";
    std::string words = isReal(row.kind) ? "a number" : "a whole number";
    if (const auto range = row.enteredRange()) words += " in " + formatRange(*range);
    if (row.unit != Unit::None) words += " (" + std::string(unitText(row.unit)) + ")";
    return words;
}

std::string formatRange(const Range& range) {
    if (std::isinf(range.high)) return "at least " + formatNumber(range.low);
    return formatNumber(range.low) + ".." + formatNumber(range.high);
}

}  // namespace ruvex
