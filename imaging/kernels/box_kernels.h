// The inner loops of a blur: one box along a block of lines that lie side by side.

#pragma once

#include <cstdint>

#include "imaging/blur/blur_weights.h"

namespace ruvex {

/// The components that a block holds at each position along its lines: a cache line of them. How
/// they are shared out between lines and components is the caller's affair; lanes never mix.
inline constexpr std::int64_t kLaneBytes = 64;
template <class T>
inline constexpr std::int64_t kLanes = kLaneBytes / static_cast<std::int64_t>(sizeof(T));

/// Runs one box in place. `block` holds `count` + weights.span positions of kLanes<T> lanes; the
/// first lies weights.reach before the first output. The outputs end up in the first `count`
/// positions; what lies behind them is left over.
template <class T>
using BoxFilter = void (*)(T* block, std::int64_t count, const BoxWeights& weights);

/// One version of every loop. The fixed ones sum integers with 14-bit weights, modulo 2 to the 32;
/// the floating ones sum floats and truncate. All versions give the same bits.
struct BoxKernels {
    BoxFilter<std::uint8_t> fixed8;
    BoxFilter<std::int16_t> fixed16;
    BoxFilter<std::int32_t> fixed32;
    BoxFilter<std::uint8_t> floating8;
    BoxFilter<std::int16_t> floating16;
};

/// For any processor that the build is for.
const BoxKernels& plainBoxKernels();

/// For x86-64 processors with AVX2. Builds for other kinds of processor do not define it.
const BoxKernels& avx2BoxKernels();

/// The fastest that this machine runs.
const BoxKernels& bestBoxKernels();

}  // namespace ruvex
