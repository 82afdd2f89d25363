// Small helpers for the words of messages.

#pragma once

#include <algorithm>
#include <string>

namespace ruvex::media {

/// ASCII letters in lower case, everything else as it stands.
inline std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

}  // namespace ruvex::media
