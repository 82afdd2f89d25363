// The inner loops of the television: each works on a stretch of a row.

#pragma once

#include <cstdint>

#include "imaging/pixel.h"
#include "stages/colour_loss.h"
#include "stages/grain_shape.h"

namespace ruvex {

/// One version of every loop for pixels P. All versions give the same bits. Where it says so, `to`
/// may be the very stretch that is read; otherwise they must not meet.
template <class P>
struct RowKernels {
    /// Clamps red, green and blue to 0..top. In place or not.
    void (*clampToRange)(const P* from, std::int32_t count, P* to);
    /// Takes colour away where the guns are in line. In place or not.
    void (*loseColour)(const P* from, std::int32_t count, const ColourLoss& loss, P* to);
    /// The same from the pixels that each gun reads. Alpha is that of the red gun's pixel.
    void (*loseColourApart)(const P* red, const P* green, const P* blue, std::int32_t count,
                            const ColourLoss& loss, P* to);
    /// Saturation about the mean of the three, then the gain. In place.
    void (*saturate)(P* pixels, std::int32_t count, float saturation, float gain);
    /// Adds to each component of `row` its differences from the `ghostCount` ghosts, weighted, one
    /// ghost after the other.
    void (*addGhosts)(const P* row, const P* const* ghosts, const float* weights,
                      std::int32_t ghostCount, std::int32_t count, P* to);
    /// The hashes of `count` pixels from number `number` on, four for each pixel, times factors.
    void (*hashColour)(std::uint32_t number, std::int32_t count, const float* factors, float* to);
    /// The same with one hash for each pixel, written four times.
    void (*hashGrey)(std::uint32_t number, std::int32_t count, float factor, float* to);
    /// Adds noise, four values for each pixel. In place or not.
    void (*addGrain)(const P* from, const float* noise, std::int32_t count, const GrainShape& shape,
                     P* to);
    /// Grain from four waves of a row: their phases and harmonics, a table of 1024 sines, and the
    /// pixels' places, where one is a period.
    void (*points)(const float* sines, const float* places, const float* phases,
                   const float* harmonics, std::int32_t count, P* to);
    /// Bars from noise and light, the latter in raw units.
    void (*bars)(const float* noise, const float* light, std::int32_t count, P* to);
    /// Multiplies all four components and truncates. In place or not.
    void (*dim)(const P* from, std::int32_t count, float factor, P* to);
    /// Dashes from noise and colours. The edges of dashes keep the alpha that `to` has there.
    void (*dashes)(const float* noise, const P* colours, std::int32_t count, P* to);
};

/// For any processor that the build is for.
template <class P>
const RowKernels<P>& plainRowKernels();

/// For x86-64 processors with AVX2. Builds for other kinds of processor do not define it.
template <class P>
const RowKernels<P>& avx2RowKernels();

/// The fastest that this machine runs.
template <class P>
const RowKernels<P>& bestRowKernels();

}  // namespace ruvex
