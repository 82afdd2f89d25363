// Conversion of single components between depths, rounded to the nearest.
//
// 8 bits to S2.14 and back is exact, and so is S2.14 from black to white to 16 bits and back.

#pragma once

#include <algorithm>
#include <cstdint>

#include "media/frame.h"

namespace ruvex::media {

/// White of unsigned 16-bit components.
inline constexpr int kWhite16 = 65535;

/// dividend / divisor, rounded to the nearest, halves up; `divisor` is above 0, and twice the
/// dividend fits an int.
constexpr int nearestQuotient(int dividend, int divisor) {
    const int doubled = 2 * dividend + divisor;
    const int quotient = doubled / (2 * divisor);
    return quotient - (doubled % (2 * divisor) < 0 ? 1 : 0);
}

/// S2.14 from an unsigned value, 0 to `white`; `white` is 1 to 65535.
constexpr std::int16_t s214FromScale(int value, int white) {
    return static_cast<std::int16_t>((value * kWhiteS214 + white / 2) / white);
}

/// An unsigned value, 0 to `white`, from S2.14, clamped to black and white; `white` is 1 to 65535.
constexpr std::uint16_t scaleFromS214(int value, int white) {
    const std::int64_t clamped = std::clamp(value, 0, kWhiteS214);
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

}  // namespace ruvex::media
