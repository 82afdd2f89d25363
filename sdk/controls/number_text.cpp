// Numbers as text: CDSNumberControl::textOf and valueOf.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "sdk/controls/number_control.h"

namespace {

/// From here on not every whole number is a double, and decimals would be no more than noise.
constexpr double kNoDecimalsFrom = 1e15;
/// 15 digits before the point, 15 behind it, sign and point.
constexpr std::size_t kMostCharacters = 40;

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The text of std::to_chars with these arguments.
template <class... Form>
std::string numberText(double value, Form... form) {
    std::array<char, kMostCharacters> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, form...).ptr;
    return std::string(text.data(), end);
}

void cutTrailingZeros(std::string& text) {
    if (text.find('.') == std::string::npos) return;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
}

}  // namespace

std::string CDSNumberControl::textOf(double value, int decimals) {
    if (std::isnan(value)) return "nan";
    if (std::abs(value) >= kNoDecimalsFrom) return numberText(value);
    std::string text =
        numberText(value, std::chars_format::fixed, std::clamp(decimals, 0, kMostDecimals));
    cutTrailingZeros(text);
    return text == "-0" ? "0" : text;
}

std::optional<double> CDSNumberControl::valueOf(std::string_view text) {
    std::string number(withoutBlanks(text));
    std::ranges::replace(number, ',', '.');
    const char* first = number.data();
    const char* const last = first + number.size();
    // std::from_chars takes no plus sign.
    if (number.starts_with('+') && !number.starts_with("+-")) ++first;
    double value = 0.0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last || !std::isfinite(value)) return std::nullopt;
    return value;
}
