#include "imaging/gradient_noise.h"

#include "imaging/maths.h"
#include "imaging/pixel_convert.h"
#include "imaging/random.h"
#include "imaging/wrap.h"

namespace ruvex {
namespace {

constexpr float kHalfHashStep = 9.313226e-10f;  // 1 / 1073741824: hashes become 0..2
constexpr float kTwoPi = 6.2831855f;
constexpr std::int32_t kCellStep = 275;
constexpr std::uint32_t kEntryMask = VxGradientNoise::kEntries - 1;

float signedUnit(std::uint32_t n) {
    return 1.0f - static_cast<float>(positionHash(n)) * kHalfHashStep;
}

}  // namespace

Gradient gradientEntry(std::uint32_t seed, std::uint32_t index) {
    const float z = signedUnit(seed * index);
    const float r = static_cast<float>(maths::sqrt(1.0 - static_cast<double>(z * z)));
    const float theta = signedUnit((seed + 104761u * index) * index) * kTwoPi;
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
    const auto& gradients = table(octave);
    const std::int32_t whole = truncateToInt(x);
    const std::int32_t cell = x < 0.0f ? wrapSubtract(whole, 1) : whole;
    const float f = x - static_cast<float>(cell);
    const auto c = static_cast<std::uint32_t>(wrapMultiply(cell, kCellStep));
    const float p = f * gradients[c & kEntryMask];
    const float q = (f - 1.0f) * gradients[(c + kCellStep) & kEntryMask];
    const float s = (3.0f - 2.0f * f) * f * f;
    return (q - p) * s + p;
}

float VxGradientNoise::fractalNoise(float x, std::int32_t octaves) const {
    int count = kOctaves;
    if (octaves == 0 || octaves == 1) count = 1;
    if (octaves >= 2 && octaves < kOctaves) count = octaves;
    float sum = noise(0, x);
    float pace = 2.0f;
    float weight = 0.5f;
    for (int k = 1; k < count; ++k, pace *= 2.0f, weight *= 0.5f) {
        sum += weight * noise(k, x * pace + weight);
    }
    return sum;
}

const VxGradientNoise& noiseTable() {
    static const VxGradientNoise noise(0);
    return noise;
}

}  // namespace ruvex
