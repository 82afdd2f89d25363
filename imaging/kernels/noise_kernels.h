// The inner loops of noise along rows: hashes, gradients, and the sines beside them.

#pragma once

#include <cstdint>

#include "imaging/pixel.h"

namespace ruvex {

/// One version of every loop. All versions give the same bits.
struct NoiseKernels {
    /// Values of `count` columns from pixel number `number` on: the hash times `factor` plus
    /// `offset`, truncated.
    void (*channel)(std::uint32_t number, std::int32_t count, float factor, float offset,
                    ChannelInt* to);
    /// The same for four components with a factor each.
    void (*colour)(std::uint32_t number, std::int32_t count, const float* factors, RgbaInt* to);
    /// The same, leaving the fourth component as it is.
    void (*colourWithoutAlpha)(std::uint32_t number, std::int32_t count, const float* factors,
                               RgbaInt* to);
    /// Adds `weight` times one octave of gradient noise at places[i] * pace + shift to to[i].
    /// `gradients` are the octave's table of 1024.
    void (*octave)(const float* gradients, const float* places, std::int32_t count, float pace,
                   float shift, float weight, float* to);
    /// The sines of angles in radians of up to maths::detail::kExactReduction, narrowed.
    void (*sines)(const float* angles, std::int32_t count, float* to);
};

/// For any processor that the build is for.
const NoiseKernels& plainNoiseKernels();

/// For x86-64 processors with AVX2. Builds for other kinds of processor do not define it.
const NoiseKernels& avx2NoiseKernels();

/// The fastest that this machine runs.
const NoiseKernels& bestNoiseKernels();

}  // namespace ruvex
