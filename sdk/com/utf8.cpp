#include "sdk/com/utf8.h"

#include <cstdint>

namespace ruvex {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLast = 0x10FFFF;

constexpr bool isLeading(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isTrailing(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
constexpr bool isCharacter(char32_t code) {
    return code <= kLast && !isLeading(code) && !isTrailing(code);
}

/// The value of a code unit; wchar_t may be signed.
constexpr char32_t numberOf(wchar_t unit) {
    return static_cast<char32_t>(unit) & (sizeof(wchar_t) == 2 ? 0xFFFFu : 0xFFFFFFFFu);
}

void append(std::string& text, char32_t code) {
    const auto trailing = [&](int shift) {
        text += static_cast<char>(0x80 | (code >> shift & 0x3F));
    };
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr unsigned kLeads[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kLeads[more] | code >> (6 * more));
    for (int shift = 6 * (more - 1); shift >= 0; shift -= 6) trailing(shift);
}

void append(std::wstring& text, char32_t code) {
    if (sizeof(wchar_t) == 2 && code > 0xFFFF) {
        text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + (code & 0x3FF));
    } else {
        text += static_cast<wchar_t>(code);
    }
}

/// The number of bytes that follow a lead byte; -1 if the byte can't begin a character.
constexpr int followers(unsigned char lead) {
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    return lead >= 0xF0 && lead <= 0xF4 ? 3 : -1;
}

/// Decodes the first character of `text`, which must not be empty, and stores its length in bytes.
/// U+FFFD with length 1 if it is malformed.
char32_t decode(std::string_view text, std::size_t& length) {
    constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
    length = 1;
    const auto lead = static_cast<unsigned char>(text[0]);
    const int more = followers(lead);
    if (more == 0) return lead;
    if (more < 0 || text.size() <= static_cast<std::size_t>(more)) return kReplacement;
    char32_t code = lead & (0x3Fu >> more);
    for (int i = 1; i <= more; ++i) {
        const auto byte = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
        if ((byte & 0xC0) != 0x80) return kReplacement;
        code = code << 6 | (byte & 0x3Fu);
    }
    if (code < kSmallest[more] || !isCharacter(code)) return kReplacement;
    length = static_cast<std::size_t>(more) + 1;
    return code;
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = numberOf(text[i]);
        if (isLeading(code) && i + 1 < text.size() && isTrailing(numberOf(text[i + 1]))) {
            code = 0x10000 + ((code - 0xD800) << 10) + (numberOf(text[++i]) - 0xDC00);
        }
        append(bytes, isCharacter(code) ? code : kReplacement);
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view text) {
    std::wstring wide;
    while (!text.empty()) {
        std::size_t length = 0;
        append(wide, decode(text, length));
        text.remove_prefix(length);
    }
    return wide;
}

}  // namespace ruvex
