// The inner loops of the television: each works on a stretch of a row.

#pragma once

#include <cstdint>

#include "imaging/pixel.h"
#include "stages/colour_loss.h"

namespace ruvex {

/// What a row of noise adds to a picture's components: values of `noise` plus `low`, less the dead
/// band, in raw units of the picture.
struct GrainShape {
    float low[4];        ///< added to the noise of each component
    bool banded;         ///< there is a dead band at all
    float cut;           ///< half the width of the dead band
    float stretch;       ///< what lies outside it is stretched by this
    std::uint32_t keep;  ///< 1 where components stay as they are: bit 0 is red
};

/// One version of every loop for pixels P. All versions give the same bits. Where it says so, `to`
/// may be the very stretch that is read; otherwise they must not meet.
template <class P>
struct RowKernels {
    /// Holds red, green and blue to 0..top. In place or not.
    void (*hold)(const P* from, std::int32_t count, P* to);
    /// Takes colour away where the guns are in line. In place or not.
    void (*lose)(const P* from, std::int32_t count, const ColourLoss& loss, P* to);
    /// The same from the pixels that each gun reads. Alpha is that of the red gun's pixel.
    void (*loseApart)(const P* red, const P* green, const P* blue, std::int32_t count,
                      const ColourLoss& loss, P* to);
    /// Saturation about the mean of the three, then the gain. In place.
    void (*finish)(P* pixels, std::int32_t count, float saturation, float gain);
    /// Adds to each component of `row` its differences from the `ghostCount` ghosts, weighted, one
    /// ghost after the other.
    void (*haunt)(const P* row, const P* const* ghosts, const float* weights,
                  std::int32_t ghostCount, std::int32_t count, P* to);
};

/// For any processor that the build is for.
template <class P>
const RowKernels<P>& plainRowKernels();

/// The fastest that this machine runs.
template <class P>
const RowKernels<P>& bestRowKernels();

}  // namespace ruvex
