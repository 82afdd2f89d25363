// The inner loops of a blur: one box filter along a block of interleaved lines.

#pragma once

#include <cstdint>

#include "imaging/blur/blur_weights.h"
#include "imaging/kernels/dispatch.h"

namespace ruvex {

/// Bytes that a block holds at each position along its lines: one cache line. Each component in it
/// is a lane, filtered independently of the others; which line and component it belongs to is up
/// to the caller.
inline constexpr std::int64_t kLaneBytes = 64;
template <class T>
inline constexpr std::int64_t kLanes = kLaneBytes / static_cast<std::int64_t>(sizeof(T));

/// Runs one box in place. `block` holds `count` + weights.span positions of kLanes<T> lanes; its
/// first position is weights.reach before the first output. The outputs replace the first `count`
/// positions; the contents of the rest are meaningless afterwards.
template <class T>
using BoxFilter = void (*)(T* block, std::int64_t count, const BoxWeights& weights);

/// One version of every loop. The fixed loops sum integers modulo 2^32 with 14-bit weights; the
/// floating loops sum floats and truncate. All versions give the same bits.
struct BoxKernels {
    BoxFilter<std::uint8_t> fixed8;
    BoxFilter<std::int16_t> fixed16;
    BoxFilter<std::int32_t> fixed32;
    BoxFilter<std::uint8_t> floating8;
    BoxFilter<std::int16_t> floating16;
};

/// The loops compiled for the build's target processor.
const BoxKernels& plainBoxKernels();

/// The loops for x86-64 processors with AVX2. Not defined in builds for other architectures.
const BoxKernels& avx2BoxKernels();

/// The loops for x86-64 processors with 512-bit vectors. Not defined in builds for other
/// architectures.
const BoxKernels& avx512BoxKernels();

/// All versions that this machine's processor supports.
const KernelVersions<BoxKernels>& boxKernelVersions();

/// The fastest version that this machine's processor supports.
const BoxKernels& bestBoxKernels();

}  // namespace ruvex
