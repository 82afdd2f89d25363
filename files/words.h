// Small helpers for the text of messages.

#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace ruvex::files {

/// The text in single quotation marks.
inline std::string inQuotes(std::string_view text) {
    std::string result = "'";
    result.append(text).append("'");
    return result;
}

/// ASCII letters in lower case, everything else unchanged.
inline std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

/// The text made safe for any terminal: control characters, line ends too, and bytes that are not
/// UTF-8 become escapes such as \x1B. A result longer than `most` bytes is cut there and ends in
/// "...".
std::string printable(std::string_view text, std::size_t most = SIZE_MAX);

/// Whether `printable` leaves the text as it is.
bool isPrintable(std::string_view text);

}  // namespace ruvex::files
