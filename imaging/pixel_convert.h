// Conversions between stored components and the floats that stages compute with.

#pragma once

#include <cstdint>
#include <limits>

#include "imaging/pixel.h"

namespace ruvex {

/// Truncates towards zero. NaN and values outside the 32-bit range give -2147483648, as the x86
/// conversion instruction does; the plain cast would be undefined. Always inline, because sources
/// compiled for one instruction set use it: the linker must not take their copy for all.
[[gnu::always_inline]] constexpr std::int32_t truncateToInt(float value) {
    return value >= -2147483648.0f && value < 2147483648.0f
               ? static_cast<std::int32_t>(value)
               : std::numeric_limits<std::int32_t>::min();
}

/// The same for double.
constexpr std::int32_t truncateToInt(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<std::int32_t>(value)
                                                         : std::numeric_limits<std::int32_t>::min();
}

/// The largest integer not above `value`; the range is that of truncateToInt.
constexpr std::int32_t floorToInt(float value) {
    const std::int32_t whole = truncateToInt(value);
    const bool below = value < 0.0f && static_cast<float>(whole) != value;
    return below && whole != std::numeric_limits<std::int32_t>::min() ? whole - 1 : whole;
}

/// Converts to a component of P: clamps to the storage range, then truncates. There is no rounding:
/// 254.99 becomes 254. In S2.14 the storage range goes beyond white, so values above white are
/// kept; in 8 bits they are clamped to white.
template <class P>
constexpr typename P::Component storeClamped(float value) {
    using Parameters = typename P::Parameters;
    if constexpr (Parameters::kClamp) {
        if (value <= static_cast<float>(Parameters::kMin)) {
            return static_cast<typename P::Component>(Parameters::kMin);
        }
        if (value >= static_cast<float>(Parameters::kMax)) {
            return static_cast<typename P::Component>(Parameters::kMax);
        }
        return static_cast<typename P::Component>(truncateToInt(value));
    } else {
        return value;
    }
}

/// Converts to component type T by truncation without a clamp: values out of range wrap.
template <typename T>
constexpr T storeTruncated(float value) {
    if constexpr (std::numeric_limits<T>::is_integer) {
        return static_cast<T>(truncateToInt(value));
    } else {
        return value;
    }
}

/// Converts a fraction of white, such as 0..1 of a fill colour, to a component: truncated, not
/// clamped.
template <class P>
constexpr typename P::Component fromNormalised(float fraction) {
    return storeTruncated<typename P::Component>(fraction * PixelTraits<P>::kWhite);
}

/// a + (b - a) * fraction, in float.
constexpr float lerp(float a, float b, float fraction) {
    return a + (b - a) * fraction;
}

/// The same for integers: b - a wraps in 32 bits, the rest is computed in float and truncated.
/// Floats have 24 bits, so large values lose their low bits.
constexpr std::int32_t lerp(std::int32_t a, std::int32_t b, float fraction) {
    const auto difference =
        static_cast<std::int32_t>(static_cast<std::uint32_t>(b) - static_cast<std::uint32_t>(a));
    return truncateToInt(static_cast<float>(difference) * fraction + static_cast<float>(a));
}

/// Converts a float to an unsigned seed: truncated to 64 bits, then modulo 2^32. Values outside 64
/// bits and NaN give 0.
constexpr std::uint32_t seedFromFloat(float value) {
    const bool fits = value >= -9223372036854775808.0f && value < 9223372036854775808.0f;
    return fits ? static_cast<std::uint32_t>(static_cast<std::int64_t>(value)) : 0u;
}

}  // namespace ruvex
