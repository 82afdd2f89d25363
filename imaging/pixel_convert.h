// Every conversion between a stored component and the value that a stage computes with.

#pragma once

#include <cstdint>
#include <limits>

#include "imaging/pixel.h"

namespace ruvex {

/// Truncates towards zero. NaN and values outside the 32-bit range give -2147483648, which is what
/// the processor's own conversion gives, so that no picture hangs on undefined behaviour. Always
/// inline: sources for one processor alone use it, and no copy of theirs may be taken for all.
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

/// The largest whole number not above `value`, by truncation and a correction, as int.
constexpr std::int32_t floorToInt(float value) {
    const std::int32_t whole = truncateToInt(value);
    const bool below = value < 0.0f && static_cast<float>(whole) != value;
    return below && whole != std::numeric_limits<std::int32_t>::min() ? whole - 1 : whole;
}

/// Stores a working value into a component: clamped to the storage range, then truncated. There is
/// no rounding: 254.99 stores as 254. In S2.14 the clamp is to the storage and not to white, so a
/// stage that overshoots white keeps its overshoot there, while 8 bits lose it.
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

/// Narrows a working value to component type T by truncation alone; what does not fit wraps.
template <typename T>
constexpr T storeTruncated(float value) {
    if constexpr (std::numeric_limits<T>::is_integer) {
        return static_cast<T>(truncateToInt(value));
    } else {
        return value;
    }
}

/// A fraction of white (a fill or background colour) as a component: truncated, not clamped.
template <class P>
constexpr typename P::Component fromNormalised(float fraction) {
    return storeTruncated<typename P::Component>(fraction * PixelTraits<P>::kWhite);
}

/// a + (b - a) * fraction, in float.
constexpr float lerp(float a, float b, float fraction) {
    return a + (b - a) * fraction;
}

/// The integer form: the difference wraps in 32 bits, the sum is truncated. Float carries all the
/// precision the result has; near the top of the range the low bits are lost.
constexpr std::int32_t lerp(std::int32_t a, std::int32_t b, float fraction) {
    const auto difference =
        static_cast<std::int32_t>(static_cast<std::uint32_t>(b) - static_cast<std::uint32_t>(a));
    return truncateToInt(static_cast<float>(difference) * fraction + static_cast<float>(a));
}

/// A float as an unsigned seed: truncated through 64 bits, modulo 2 to the 32; what 64 bits do not
/// hold, and NaN, give 0.
constexpr std::uint32_t seedFromFloat(float value) {
    const bool fits = value >= -9223372036854775808.0f && value < 9223372036854775808.0f;
    return fits ? static_cast<std::uint32_t>(static_cast<std::int64_t>(value)) : 0u;
}

}  // namespace ruvex
