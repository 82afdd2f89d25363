// The inner loops along rows for hash noise, gradient noise and sines.

#pragma once

#include <cstdint>

#include "imaging/blur/blur_weights.h"
#include "imaging/kernels/dispatch.h"
#include "imaging/kernels/soft_noise.h"
#include "imaging/pixel.h"

namespace ruvex {

/// One version of every loop. All versions give the same bits.
struct NoiseKernels {
    /// Writes hash * factor + offset, truncated, for `count` columns; `number` is the pixel number
    /// of the first.
    void (*channel)(std::uint32_t number, std::int32_t count, float factor, float offset,
                    ChannelInt* to);
    /// The same for four components, each with its own factor and no offset.
    void (*colour)(std::uint32_t number, std::int32_t count, const float* factors, RgbaInt* to);
    /// The same for the first three components; the fourth keeps its value.
    void (*colourWithoutAlpha)(std::uint32_t number, std::int32_t count, const float* factors,
                               RgbaInt* to);
    /// Adds `weight` times one octave of gradient noise at places[i] * pace + shift to to[i].
    /// `gradients` is the octave's table of kGradientEntries.
    void (*octave)(const float* gradients, const float* places, std::int32_t count, float pace,
                   float shift, float weight, float* to);
    /// The sines, in single precision, of angles in radians. Their magnitude must not exceed
    /// maths::detail::kExactReduction.
    void (*sines)(const float* angles, std::int32_t count, float* to);
    /// Computes noise at `count` positions, blurs it with three boxes of 14-bit weights and writes
    /// their outputs, as a further box of radius 0 rounds them. The first 3 * weights.span outputs
    /// after a jump in the noise depend on what was there before it. The numbers of `noise` and the
    /// inputs of `chain` move on by `count` positions.
    void (*soften)(NoiseLanes& noise, std::int64_t count, const BoxWeights& weights,
                   BoxChain& chain, std::int32_t* to);
};

/// The loops compiled for the build's target processor.
const NoiseKernels& plainNoiseKernels();

/// The loops for x86-64 processors with AVX2. Not defined in builds for other architectures.
const NoiseKernels& avx2NoiseKernels();

/// The loops for x86-64 processors with 512-bit vectors. Not defined in builds for other
/// architectures.
const NoiseKernels& avx512NoiseKernels();

/// All versions that this machine's processor supports.
const KernelVersions<NoiseKernels>& noiseKernelVersions();

/// The fastest version that this machine's processor supports.
const NoiseKernels& bestNoiseKernels();

}  // namespace ruvex
