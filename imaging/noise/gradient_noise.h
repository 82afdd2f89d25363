// Smooth wandering values: one-dimensional fractal noise from tables of gradients.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/noise/gradient_noise_cell.h"

namespace ruvex {

/// One entry of a gradient table: a unit vector, of which the noise uses `x`.
struct Gradient {
    float x, y, z;
};

/// Entry `index` of the table with a seed.
Gradient gradientEntry(std::uint32_t seed, std::uint32_t index);

/// Eight octaves of gradients. Read-only once it is made; any number of threads may read it.
class VxGradientNoise {
public:
    static constexpr int kOctaves = 8;
    static constexpr int kEntries = kGradientEntries;

    /// Octave k has the table of seed `baseSeed` + k.
    explicit VxGradientNoise(std::uint32_t baseSeed);

    /// One octave at x. An exact negative whole number is taken one cell too low, where the curve
    /// meets itself.
    float noise(int octave, float x) const;

    /// The sum of octaves, each of half the weight and twice the pace of the one before. `octaves`
    /// of 0 or 1 is one octave, 2 to 7 are that many, anything else is all eight.
    float fractalNoise(float x, std::int32_t octaves) const;

    /// The same for many places at once, which is three times as fast where the processor has AVX2:
    /// to[i] becomes the noise at places[i], to the bit. The arrays must not overlap.
    void fractalNoiseRow(const float* places, std::int32_t count, std::int32_t octaves,
                         float* to) const;

    /// The first components of an octave's gradients.
    const std::array<float, kEntries>& table(int octave) const {
        return tables_[static_cast<std::size_t>(octave)];
    }

private:
    std::array<std::array<float, kEntries>, kOctaves> tables_;
};

/// The one that the whole effect uses, with base seed 0: all gradients of its first octave share
/// one z, and pictures depend on that.
const VxGradientNoise& noiseTable();

}  // namespace ruvex
