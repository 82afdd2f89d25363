// The 128-bit identifier of classes, interfaces and parameters, and its text form.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#ifdef _WIN32
#include <guiddef.h>
#else
/// A GUID in the memory layout of the host's interfaces.
struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    friend constexpr bool operator==(const GUID&, const GUID&) = default;
};
#endif

namespace ruvex {

/// The number of characters of an identifier's text: 8-4-4-4-12 hexadecimal digits.
inline constexpr std::size_t kGuidTextLength = 36;

namespace detail {

constexpr int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

constexpr bool isGuidDash(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

}  // namespace detail

/// Reads the form "A41E7F12-37AB-48B5-99C9-C4B83402C0FC", digits in either case, without braces.
/// No value for any other text.
constexpr std::optional<GUID> parseGuid(std::string_view text) {
    if (text.size() != kGuidTextLength) return std::nullopt;
    std::array<std::uint8_t, 16> bytes{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (detail::isGuidDash(i)) {
            if (text[i] != '-') return std::nullopt;
            continue;
        }
        const int digit = detail::hexDigit(text[i]);
        if (digit < 0) return std::nullopt;
        std::uint8_t& byte = bytes[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | digit);
    }
    GUID guid{};
    guid.Data1 = static_cast<std::uint32_t>(bytes[0]) << 24 |
                 static_cast<std::uint32_t>(bytes[1]) << 16 |
                 static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
    guid.Data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    guid.Data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    for (std::size_t i = 0; i < 8; ++i) guid.Data4[i] = bytes[8 + i];
    return guid;
}

/// The same for a literal. A text that is no identifier is a compile-time error.
consteval GUID guidFromText(std::string_view text) {
    return parseGuid(text).value();
}

/// The bytes in the order in which the text shows them.
constexpr std::array<std::uint8_t, 16> guidBytes(const GUID& guid) {
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[i] = static_cast<std::uint8_t>(guid.Data1 >> (24 - 8 * i));
    }
    bytes[4] = static_cast<std::uint8_t>(guid.Data2 >> 8);
    bytes[5] = static_cast<std::uint8_t>(guid.Data2);
    bytes[6] = static_cast<std::uint8_t>(guid.Data3 >> 8);
    bytes[7] = static_cast<std::uint8_t>(guid.Data3);
    for (std::size_t i = 0; i < 8; ++i) bytes[8 + i] = guid.Data4[i];
    return bytes;
}

/// Upper case, with dashes, without braces; parseGuid reads it back.
inline std::string toText(const GUID& guid) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(kGuidTextLength);
    for (const std::uint8_t byte : guidBytes(guid)) {
        if (detail::isGuidDash(text.size())) text += '-';
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

/// Orders identifiers like their texts; for std::map.
struct GuidLess {
    constexpr bool operator()(const GUID& a, const GUID& b) const {
        return guidBytes(a) < guidBytes(b);
    }
};

/// Hash for std::unordered_map: FNV-1a over all bytes, since related identifiers differ only in a
/// few bits of Data1.
struct GuidHash {
    constexpr std::size_t operator()(const GUID& guid) const {
        std::uint64_t hash = 14695981039346656037u;
        for (const std::uint8_t byte : guidBytes(guid)) hash = (hash ^ byte) * 1099511628211u;
        return static_cast<std::size_t>(hash);
    }
};

}  // namespace ruvex
