// The inner loops of the television: each processes some consecutive pixels of a row.

#pragma once

#include <cstdint>

#include "imaging/kernels/dispatch.h"
#include "imaging/pixel.h"
#include "stages/colour_loss.h"
#include "stages/grain_shape.h"

namespace ruvex {

/// One version of every loop for pixel type P. All versions give the same bits. Where a comment
/// says "In place or not", `to` may be equal to `from`; otherwise the arrays must not overlap.
template <class P>
struct RowKernels {
    /// Clamps red, green and blue to 0..top. In place or not.
    void (*clampToRange)(const P* from, std::int32_t count, P* to);
    /// Applies the loss of colour when all guns read the same pixels. In place or not.
    void (*loseColour)(const P* from, std::int32_t count, const ColourLoss& loss, P* to);
    /// The same when each gun reads other pixels. Alpha comes from the red gun's pixel.
    void (*loseColourApart)(const P* red, const P* green, const P* blue, std::int32_t count,
                            const ColourLoss& loss, P* to);
    /// Scales the differences from the mean of red, green and blue by `saturation`, then all three
    /// by `gain`. In place.
    void (*saturate)(P* pixels, std::int32_t count, float saturation, float gain);
    /// Adds to each component of `row` the weighted differences from `ghostCount` ghosts, one ghost
    /// after the other.
    void (*addGhosts)(const P* row, const P* const* ghosts, const float* weights,
                      std::int32_t ghostCount, std::int32_t count, P* to);
    /// Writes hash * factor for `count` pixels, four values each. `number` is the first pixel's.
    void (*hashColour)(std::uint32_t number, std::int32_t count, const float* factors, float* to);
    /// The same with one hash per pixel, written four times.
    void (*hashGrey)(std::uint32_t number, std::int32_t count, float factor, float* to);
    /// Adds noise, four values per pixel, with the given shape. In place or not.
    void (*addGrain)(const P* from, const float* noise, std::int32_t count, const GrainShape& shape,
                     P* to);
    /// The same with integers. The four values of a pixel are followed by those of the next one
    /// `stride` integers further.
    void (*addSoftGrain)(const P* from, const std::int32_t* noise, std::int64_t stride,
                         std::int32_t count, const GrainShape& shape, P* to);
    /// White points where the mean of four waves is high: from a table of 1024 sines, the pixels'
    /// places in periods, and the waves' phases and harmonics.
    void (*points)(const float* sines, const float* places, const float* phases,
                   const float* harmonics, std::int32_t count, P* to);
    /// Grain of bars, from noise and the light (raw values) of each pixel.
    void (*bars)(const float* noise, const float* light, std::int32_t count, P* to);
    /// Multiplies all four components and truncates. In place or not.
    void (*dim)(const P* from, std::int32_t count, float factor, P* to);
    /// Dashes, from noise and the colour of each pixel. At their edges `to` keeps its alpha.
    void (*dashes)(const float* noise, const P* colours, std::int32_t count, P* to);
};

/// The loops compiled for the build's target processor.
template <class P>
const RowKernels<P>& plainRowKernels();

/// The loops for x86-64 processors with AVX2. Not defined in builds for other architectures.
template <class P>
const RowKernels<P>& avx2RowKernels();

/// The loops for x86-64 processors with 512-bit vectors. Not defined in builds for other
/// architectures.
template <class P>
const RowKernels<P>& avx512RowKernels();

/// All versions that this machine's processor supports.
template <class P>
const KernelVersions<RowKernels<P>>& rowKernelVersions();

/// The fastest version that this machine's processor supports.
template <class P>
const RowKernels<P>& bestRowKernels();

}  // namespace ruvex
