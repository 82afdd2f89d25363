// Conversion of single components between integer depths, rounded to the nearest.
//
// 8 bits to S2.14 and back is exact, and so is S2.14 from black to white to 16 bits and back.

#pragma once

#include <algorithm>
#include <cstdint>

namespace ruvex {

/// White of components with 8 and 16 unsigned bits, and of S2.14, which has 16 signed bits.
inline constexpr int kWhite8 = 255;
inline constexpr int kWhite16 = 65535;
inline constexpr int kWhiteS214 = 16384;

/// S2.14 from an unsigned value, 0 to `white`; `white` is 1 to 65535.
constexpr std::int16_t s214FromScale(int value, int white) {
    return static_cast<std::int16_t>((value * kWhiteS214 + white / 2) / white);
}

/// An unsigned value, 0 to `white`, from S2.14, clamped to black and white; `white` is 1 to 65535.
constexpr std::uint16_t scaleFromS214(int value, int white) {
    const int clamped = std::clamp(value, 0, kWhiteS214);
    return static_cast<std::uint16_t>((clamped * white + kWhiteS214 / 2) / kWhiteS214);
}

constexpr std::int16_t s214From8(std::uint8_t value) {
    return s214FromScale(value, kWhite8);
}
constexpr std::int16_t s214From16(std::uint16_t value) {
    return s214FromScale(value, kWhite16);
}
constexpr std::uint8_t u8FromS214(std::int16_t value) {
    return static_cast<std::uint8_t>(scaleFromS214(value, kWhite8));
}
constexpr std::uint16_t u16FromS214(std::int16_t value) {
    return scaleFromS214(value, kWhite16);
}

}  // namespace ruvex
