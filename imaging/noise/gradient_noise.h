// One-dimensional fractal gradient noise: values that vary smoothly along a line.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/noise/gradient_noise_cell.h"

namespace ruvex {

/// One entry of a gradient table: a unit vector. The noise uses only `x`.
struct Gradient {
    float x, y, z;
};

/// Entry `index` of the gradient table with seed `seed`.
Gradient gradientEntry(std::uint32_t seed, std::uint32_t index);

/// Gradient tables for eight octaves. Immutable after construction, so all threads may use it.
class VxGradientNoise {
public:
    static constexpr int kOctaves = 8;
    static constexpr int kEntries = kGradientEntries;

    /// Octave k uses the gradient table with seed `baseSeed` + k.
    explicit VxGradientNoise(std::uint32_t baseSeed);

    /// One octave at x; see gradientNoise.
    float noise(int octave, float x) const;

    /// The sum of octaves; each has half the weight and twice the frequency of the one before.
    /// `octaves` 0 and 1: one octave; 2 to 7: that many; any other value: all eight.
    float fractalNoise(float x, std::int32_t octaves) const;

    /// to[i] = fractalNoise(places[i], octaves), bit for bit, for `count` places. Three times as
    /// fast on processors with AVX2. The arrays must not overlap.
    void fractalNoiseRow(const float* places, std::int32_t count, std::int32_t octaves,
                         float* to) const;

    /// The x components of an octave's gradients.
    const std::array<float, kEntries>& table(int octave) const {
        return tables_[static_cast<std::size_t>(octave)];
    }

private:
    std::array<std::array<float, kEntries>, kOctaves> tables_;
};

/// The tables that the whole effect uses, with base seed 0. With seed 0 all gradients of the first
/// octave have the same z; pictures depend on it, so the seed must not change.
const VxGradientNoise& noiseTable();

}  // namespace ruvex
