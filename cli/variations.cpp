#include "cli/variations.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "cli/typed_parameter.h"
#include "cli/usage_error.h"
#include "files/words.h"
#include "parameters/parameter_text.h"

namespace ruvex::cli {
namespace {

[[noreturn]] void refuseVariations(const std::string& text, const std::string& reason) {
    throw UsageError("--vary " + files::inQuotes(text) + ": " + reason +
                     " Write NAME=A..B or NAME=VALUE,VALUE,...");
}

void checkCount(const std::string& text, long long count) {
    if (count > kMostVariations) {
        refuseVariations(text,
                         "a sheet shows at most " + std::to_string(kMostVariations) + " values.");
    }
}

std::optional<int> wholeNumber(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole ? std::optional(value) : std::nullopt;
}

/// The values of "A..B" as text; none for text of another form.
std::vector<std::string> rangeValues(const std::string& text, std::string_view values) {
    std::vector<std::string> all;
    const std::size_t dots = values.find("..");
    if (dots == std::string_view::npos) return all;
    const auto first = wholeNumber(values.substr(0, dots));
    const auto last = wholeNumber(values.substr(dots + 2));
    if (!first || !last || *first > *last) {
        refuseVariations(text, files::inQuotes(values) + " is not a range of whole numbers.");
    }
    checkCount(text, static_cast<long long>(*last) - *first + 1);
    for (int value = *first; value <= *last; ++value) all.push_back(std::to_string(value));
    return all;
}

std::vector<std::string> listValues(const std::string& text, std::string_view values) {
    std::vector<std::string> all;
    for (std::size_t begin = 0; begin <= values.size();) {
        const std::size_t end = std::min(values.find(',', begin), values.size());
        all.emplace_back(values.substr(begin, end - begin));
        checkCount(text, static_cast<long long>(all.size()));
        begin = end + 1;
    }
    return all;
}

}  // namespace

std::vector<Variation> parseVariations(const std::string& text,
                                       std::vector<std::string>& warnings) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) refuseVariations(text, "there is no '='.");
    const std::string name = text.substr(0, equals);
    const std::string_view values = std::string_view(text).substr(equals + 1);
    std::vector<std::string> all = rangeValues(text, values);
    if (all.empty()) all = listValues(text, values);
    std::vector<Variation> variations;
    for (const std::string& value : all) {
        const looks::Setting setting = parseSetting(name + "=" + value, warnings, "--vary");
        const ParameterRow& parameter = row(setting.id);
        variations.push_back(
            {std::string(parameter.label) + " " + formatValue(parameter, setting.value), setting});
    }
    return variations;
}

}  // namespace ruvex::cli
