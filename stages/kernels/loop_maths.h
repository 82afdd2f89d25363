// Helpers of the television's inner loops. Always inline: the loops are compiled once per
// instruction set, and the linker must not take one copy of a helper for all.

#pragma once

#include <cstdint>

#include "imaging/pixel.h"

namespace ruvex::detail {

[[gnu::always_inline]] inline float magnitude(float value) {
    return __builtin_fabsf(value);
}

/// The components of a row of pixels as one array; there is no padding between pixels.
template <class P>
[[gnu::always_inline]] inline const typename P::Component* components(const P* row) {
    return reinterpret_cast<const typename P::Component*>(row);
}
template <class P>
[[gnu::always_inline]] inline typename P::Component* components(P* row) {
    return reinterpret_cast<typename P::Component*>(row);
}

/// Clamps to 0..top and truncates; NaN becomes 0. Written so that the compiler vectorises loops of
/// it.
template <class P>
[[gnu::always_inline]] inline std::int32_t clampedToRange(float value) {
    constexpr float kTop = PixelTraits<P>::kTop;
    const float low = value > 0.0f ? value : 0.0f;
    return static_cast<std::int32_t>(low < kTop ? low : kTop);
}
template <class P>
[[gnu::always_inline]] inline std::int32_t clampedToRange(std::int32_t value) {
    constexpr auto kTop = static_cast<std::int32_t>(PixelTraits<P>::kTop);
    const std::int32_t low = value > 0 ? value : 0;
    return low < kTop ? low : kTop;
}

/// The same for the lanes of a Vector.
template <class P, class V>
[[gnu::always_inline]] inline typename V::Ints clampedLanes(typename V::Floats values) {
    const auto low = V::larger(values, V::all(0.0f));
    return V::truncated(V::smaller(low, V::all(PixelTraits<P>::kTop)));
}

}  // namespace ruvex::detail
