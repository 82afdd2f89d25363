#include "cli/typed_parameter.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <sstream>

#include "cli/usage_error.h"
#include "files/words.h"
#include "parameters/parameter_text.h"

namespace ruvex::cli {
namespace {

struct NameAndRest {
    const ParameterRow* row;
    std::string rest;
};

const ParameterRow& findOrSuggest(const std::string& option, std::string_view name) {
    if (const ParameterRow* row = findParameter(name)) {
        return *row;
    }
    throw UsageError(option + ": " + looks::noSuchParameter(name));
}

NameAndRest splitName(const std::string& option, const std::string& text, const char* form) {
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0) {
        throw UsageError(option + ": " + files::inQuotes(text) +
                         " lacks a name or a value. Write " + form + ".");
    }
    return {&findOrSuggest(option, text.substr(0, equals)), text.substr(equals + 1)};
}

double parseUsable(const std::string& option, const ParameterRow& row, std::string_view text,
                   std::vector<std::string>& warnings) {
    const ParsedValue parsed = parseValue(row, text);
    if (!parsed.usable()) {
        throw UsageError(option + ": " + parsed.message);
    }
    if (parsed.severity == ParsedValue::Severity::Warning) {
        warnings.push_back(option + ": " + parsed.message);
    }
    return parsed.value;
}

std::optional<double> parseSeconds(std::string_view text) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

looks::KeyMode parseMode(std::string_view text) {
    if (const auto mode = looks::keyModeNamed(text)) return *mode;
    throw UsageError("--key: " + files::inQuotes(text) + " is not a mode of a key; write " +
                     looks::keyModeNames() + ", as in 1.5:80:hold.");
}

/// "T:V" or "T:V:MODE".
looks::Key parseKey(const ParameterRow& row, const std::string& text,
                    std::vector<std::string>& warnings) {
    const std::string_view all = text;
    const auto colon = all.find(':');
    const auto seconds = parseSeconds(all.substr(0, colon));
    if (colon == std::string_view::npos || !seconds) {
        throw UsageError("--key: " + files::inQuotes(text) +
                         " is not a key. Write seconds and value, as in 1.5:80.");
    }
    const std::string_view rest = all.substr(colon + 1);
    const auto second = rest.find(':');
    const double value = parseUsable("--key", row, rest.substr(0, second), warnings);
    if (second == std::string_view::npos) return {*seconds, value};
    return {*seconds, value, parseMode(rest.substr(second + 1))};
}

}  // namespace

looks::Setting parseSetting(const std::string& text, std::vector<std::string>& warnings,
                            const std::string& option) {
    const auto [row, rest] = splitName(option, text, "NAME=VALUE, as in \"Resolution=50\"");
    if (!row->rendered) {
        warnings.push_back(option + ": " + looks::doesNotRender(*row));
    }
    return {row->id, parseUsable(option, *row, rest, warnings)};
}

looks::Animation parseAnimation(const std::string& text, std::vector<std::string>& warnings) {
    const auto [row, rest] =
        splitName("--key", text, "NAME=T:V T:V ..., as in \"Resolution=0:100 2:30\"");
    if (!isReal(row->kind)) {
        throw UsageError("--key: " + files::inQuotes(row->label) +
                         " cannot be animated; only real parameters can. Use --set.");
    }
    looks::Animation animation{row->id, {}};
    std::istringstream words(rest);
    for (std::string word; words >> word;) {
        animation.keys.push_back(parseKey(*row, word, warnings));
    }
    if (animation.keys.empty()) {
        throw UsageError("--key: " + files::inQuotes(row->label) +
                         " has no keys. Write T:V, as in 0:100.");
    }
    if (const looks::Key* twice = sortKeys(animation)) {
        throw UsageError("--key: " + files::inQuotes(row->label) + " has two keys at " +
                         formatNumber(twice->seconds) + " s.");
    }
    return animation;
}

}  // namespace ruvex::cli
