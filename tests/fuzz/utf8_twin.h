// A plain check of UTF-8, by the ranges that the standard lists.

#pragma once

#include <cstdint>
#include <string_view>

namespace ruvex::fuzz {

/// Whether the text is UTF-8 without control characters: none below the blank, not DEL, none of
/// U+0080 to U+009F.
inline bool isPrintableUtf8(std::string_view text) {
    const auto at = [&](std::size_t i) {
        return i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0;
    };
    for (std::size_t i = 0; i < text.size();) {
        const int first = at(i);
        const int length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        std::uint32_t point =
            static_cast<std::uint32_t>(length == 1 ? first : first & (0x7F >> length));
        for (int k = 1; k < length; ++k) {
            const int next = at(i + static_cast<std::size_t>(k));
            if ((next & 0xC0) != 0x80) return false;
            point = point << 6 | (next & 0x3Fu);
        }
        constexpr std::uint32_t kLeast[] = {0, 0x20, 0xA0, 0x800, 0x10000};
        const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
        if (first >= 0xF8 || (first >= 0x80 && first < 0xC2) || point < kLeast[length] ||
            point == 0x7F || surrogate || point > 0x10FFFF) {
            return false;
        }
        i += static_cast<std::size_t>(length);
    }
    return true;
}

}  // namespace ruvex::fuzz
