// The hashes and the fractal noise, against plain computations of the same.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"

namespace ruvex {
namespace {

// Everything below is worked out in 64 bits and cut to 32, or in long double.
std::uint64_t plainHash(std::uint64_t n) {
    constexpr std::uint64_t kMask = 0xFFFFFFFFull;
    n &= kMask;
    const std::uint64_t m = ((n * 8192) & kMask) ^ n;
    const std::uint64_t square = (m * m) & kMask;
    const std::uint64_t bracket = ((square * 15731) & kMask) + 789221;
    const std::uint64_t product = ((bracket & kMask) * m) & kMask;
    return (product + 0x100000000ull - 0x2DF722F3ull) & 0x7FFFFFFFull;
}

TEST(PositionHash, OfZeroIsTheConstantAlone) {
    EXPECT_EQ(positionHash(0), 0x5208DD0Du);
}

TEST(PositionHash, EqualsThePlainComputation) {
    std::mt19937 random(1);
    for (int i = 0; i < 200'000; ++i) {
        const std::uint32_t n = random();
        ASSERT_EQ(positionHash(n), plainHash(n)) << n;
    }
}

TEST(NextRandom, FromStateZero) {
    std::uint32_t state = 0;
    const std::uint64_t s1 = 12345;
    const std::uint64_t s2 = (s1 * 1103515245 + 12345) % 0x100000000ull;
    const auto expected = static_cast<int>((s2 / 65536 % 256) ^ (s1 / 65536 % 256 * 128));
    EXPECT_EQ(nextRandom(state), expected);
    EXPECT_EQ(state, s2);
}

TEST(NextRandom, EqualsThePlainComputationAndStaysInRange) {
    std::mt19937 random(2);
    for (int i = 0; i < 100'000; ++i) {
        std::uint32_t state = random();
        const std::uint64_t s1 = (std::uint64_t{state} * 1103515245 + 12345) % 0x100000000ull;
        const std::uint64_t s2 = (s1 * 1103515245 + 12345) % 0x100000000ull;
        const int result = nextRandom(state);
        ASSERT_EQ(result, static_cast<int>((s2 / 65536 % 256) ^ (s1 / 65536 % 256 * 128)));
        ASSERT_EQ(state, s2);
        ASSERT_TRUE(result >= 0 && result <= 32767);
    }
}

TEST(NextRandom, AFractionReachesOne) {
    EXPECT_EQ(32767.0f * kUniformStep, 1.0f);
}

// A table entry by its definition, with the system's own functions.
float plainGradient(std::uint64_t seed, std::uint64_t i) {
    const auto unit = [](std::uint64_t n) {
        return 1.0f - static_cast<float>(plainHash(n)) * 9.313226e-10f;
    };
    const float z = unit(seed * i);
    const float square = z * z;
    const auto r = static_cast<float>(std::sqrt(1.0 - square));
    const float theta = unit((seed + 104761 * i) * i) * 6.2831855f;
    return static_cast<float>(std::cos(static_cast<double>(theta))) * r;
}

TEST(GradientNoise, TablesEqualThePlainComputation) {
    for (const std::uint32_t base : {0u, 5u, 0xFFFFFFFEu}) {
        const VxGradientNoise noise(base);
        for (int k = 0; k < 8; ++k) {
            for (int i = 0; i < 1024; ++i) {
                ASSERT_EQ(noise.table(k)[i],
                          plainGradient(base + static_cast<std::uint32_t>(k), i));
            }
        }
    }
}

TEST(GradientNoise, EntriesAreUnitVectorsAndTheFirstOctaveSharesOneZ) {
    for (std::uint32_t i = 0; i < 1024; ++i) {
        const Gradient g = gradientEntry(3, i);
        EXPECT_NEAR(g.x * g.x + g.y * g.y + g.z * g.z, 1.0f, 1e-6f);
        EXPECT_EQ(gradientEntry(0, i).z, gradientEntry(0, 0).z);
    }
}

float plainOctave(int k, float x) {
    int cell = static_cast<int>(x);
    if (x < 0) cell -= 1;
    const float f = x - static_cast<float>(cell);
    const auto entry = [&](std::int64_t at) {
        const std::int64_t index = ((at * 275) % 1024 + 1024) % 1024;
        return plainGradient(static_cast<std::uint64_t>(k), static_cast<std::uint64_t>(index));
    };
    const float p = f * entry(cell);
    const float q = (f - 1) * entry(std::int64_t{cell} + 1);
    const float s = (3 - 2 * f) * f * f;
    return (q - p) * s + p;
}

float plainFractal(float x, int octaves) {
    float sum = plainOctave(0, x);
    for (int k = 1; k < octaves; ++k) {
        const auto weight = static_cast<float>(std::ldexp(1.0, -k));
        sum += weight * plainOctave(k, x * static_cast<float>(std::ldexp(1.0, k)) + weight);
    }
    return sum;
}

TEST(GradientNoise, EqualsThePlainComputation) {
    std::mt19937 random(3);
    std::uniform_real_distribution<float> positions(-3000.0f, 3000.0f);
    for (int i = 0; i < 5'000; ++i) {
        const float x = i % 5 == 0 ? std::floor(positions(random)) : positions(random);
        for (const int octaves : {1, 2, 5, 7, 8}) {
            ASSERT_EQ(noiseTable().fractalNoise(x, octaves), plainFractal(x, octaves)) << x;
        }
    }
}

TEST(GradientNoise, ARowEqualsItsValuesToTheBit) {
    std::mt19937 random(4);
    std::uniform_real_distribution<float> positions(-500.0f, 500.0f);
    float places[131];
    float row[131];
    for (int round = 0; round < 200; ++round) {
        const int count = round % 131;
        for (float& place : places) {
            place = round % 7 == 0 ? std::round(positions(random)) : positions(random);
        }
        for (const int octaves : {0, 1, 2, 3, 8, 9}) {
            noiseTable().fractalNoiseRow(places, count, octaves, row);
            for (int i = 0; i < count; ++i) {
                const float one = noiseTable().fractalNoise(places[i], octaves);
                ASSERT_EQ(std::memcmp(&row[i], &one, sizeof(one)), 0) << places[i];
            }
        }
    }
}

TEST(GradientNoise, OctavesOutsideTheirRangeAreOneOrAll) {
    const float x = 12.34f;
    const VxGradientNoise& noise = noiseTable();
    EXPECT_EQ(noise.fractalNoise(x, 0), noise.noise(0, x));
    EXPECT_EQ(noise.fractalNoise(x, 1), noise.noise(0, x));
    for (const int octaves : {9, 100, -1}) {
        EXPECT_EQ(noise.fractalNoise(x, octaves), noise.fractalNoise(x, 8));
    }
}

TEST(GradientNoise, AtZeroOnlyTheHigherOctavesCount) {
    EXPECT_EQ(noiseTable().fractalNoise(0.0f, 1), 0.0f);
    EXPECT_NE(noiseTable().fractalNoise(0.0f, 8), 0.0f);
}

TEST(GradientNoise, AnExactNegativeWholeNumberGivesZero) {
    EXPECT_EQ(noiseTable().noise(0, -1.0f), 0.0f);
    EXPECT_EQ(noiseTable().noise(3, -17.0f), 0.0f);
}

TEST(GradientNoise, EveryFloatHasADefinedCell) {
    const float values[] = {1e30f, -1e30f, INFINITY, -INFINITY, NAN, 2147483648.0f};
    for (const float x : values) noiseTable().fractalNoise(x, 8);
}

}  // namespace
}  // namespace ruvex
