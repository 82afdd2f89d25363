#include "imaging/noise/gradient_noise.h"

#include <algorithm>

#include "imaging/kernels/noise_kernels.h"
#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise_cell.h"

namespace ruvex {
namespace {

constexpr float kHalfHashStep = 9.313226e-10f;  // 1 / 2^30: the factor from a hash to 0..2
constexpr float kTwoPi = 6.2831855f;
constexpr std::uint32_t kAngleStep = 104761;  // keeps the hash of an angle apart from that of z

// The hash of n as a number from -1 to 1.
float signedUnit(std::uint32_t n) {
    return 1.0f - static_cast<float>(positionHash(n)) * kHalfHashStep;
}

int octaveCount(std::int32_t octaves) {
    if (octaves == 0 || octaves == 1) return 1;
    return octaves >= 2 && octaves < VxGradientNoise::kOctaves ? octaves
                                                               : VxGradientNoise::kOctaves;
}

}  // namespace

// A point on the unit sphere: height z, and angle theta on the circle of radius r at that height.
Gradient gradientEntry(std::uint32_t seed, std::uint32_t index) {
    const float z = signedUnit(seed * index);
    const auto r = static_cast<float>(maths::sqrt(1.0 - static_cast<double>(z * z)));
    const float theta = signedUnit((seed + kAngleStep * index) * index) * kTwoPi;
    return {static_cast<float>(maths::cos(theta)) * r, static_cast<float>(maths::sin(theta)) * r,
            z};
}

VxGradientNoise::VxGradientNoise(std::uint32_t baseSeed) {
    for (std::uint32_t k = 0; k < kOctaves; ++k) {
        for (std::uint32_t i = 0; i < kEntries; ++i) {
            tables_[k][i] = gradientEntry(baseSeed + k, i).x;
        }
    }
}

float VxGradientNoise::noise(int octave, float x) const {
    return gradientNoise(table(octave).data(), x);
}

float VxGradientNoise::fractalNoise(float x, std::int32_t octaves) const {
    const int count = octaveCount(octaves);
    // Octave k has frequency 2^k and weight 2^-k, and is shifted by its weight.
    float sum = noise(0, x);
    float pace = 2.0f;
    float weight = 0.5f;
    for (int k = 1; k < count; ++k, pace *= 2.0f, weight *= 0.5f) {
        sum += weight * noise(k, x * pace + weight);
    }
    return sum;
}

void VxGradientNoise::fractalNoiseRow(const float* places, std::int32_t count, std::int32_t octaves,
                                      float* to) const {
    const NoiseKernels& kernels = bestNoiseKernels();
    const int octaveEnd = octaveCount(octaves);
    // Adding to -0, unlike to 0, gives every value unchanged, -0 included.
    std::fill_n(to, count, -0.0f);
    kernels.octave(table(0).data(), places, count, 1.0f, -0.0f, 1.0f, to);
    float pace = 2.0f;
    float weight = 0.5f;
    for (int k = 1; k < octaveEnd; ++k, pace *= 2.0f, weight *= 0.5f) {
        kernels.octave(table(k).data(), places, count, pace, weight, weight, to);
    }
}

const VxGradientNoise& noiseTable() {
    static const VxGradientNoise noise(0);
    return noise;
}

}  // namespace ruvex
