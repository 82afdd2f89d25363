// Components from one depth to another, rounded to the nearest. Every 8-bit value survives a trip
// through S2.14, and every S2.14 value from black to white survives one through 16 bits.

#pragma once

#include <algorithm>
#include <cstdint>

#include "media/frame.h"

namespace ruvex::media {

/// `value` of an unsigned scale whose white is `white` (1 to 65535), as S2.14.
constexpr std::int16_t s214FromScale(int value, int white) {
    return static_cast<std::int16_t>((value * kWhiteS214 + white / 2) / white);
}

/// S2.14 on an unsigned scale that ends at `white` (1 to 65535). What lies above white or below
/// black is held there, as the scale has no room for it.
constexpr std::uint16_t scaleFromS214(int value, int white) {
    const std::int64_t held = std::clamp(value, 0, kWhiteS214);
    return static_cast<std::uint16_t>((held * white + kWhiteS214 / 2) / kWhiteS214);
}

constexpr std::int16_t s214From8(std::uint8_t value) {
    return s214FromScale(value, 255);
}
constexpr std::int16_t s214From16(std::uint16_t value) {
    return s214FromScale(value, 65535);
}
constexpr std::uint8_t u8FromS214(std::int16_t value) {
    return static_cast<std::uint8_t>(scaleFromS214(value, 255));
}
constexpr std::uint16_t u16FromS214(std::int16_t value) {
    return scaleFromS214(value, 65535);
}

}  // namespace ruvex::media
