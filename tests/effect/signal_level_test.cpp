#include "effect/signal_level.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/noise_count.h"
#include "tests/effect/support/parameter_set.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr double kRate = 25.0;

float levelAt(const ParameterSet& set, double time) {
    return SignalLevel(set.reader(), kRate).at(time, time);
}

TEST(SignalLevel, WithoutVariationItIsExactlyMasterBreakupAndNoNoiseIsEvaluated) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 0);
    const auto before = fractalNoiseCalls();
    for (const double master : {0.0, 12.5, 33.0, 50.0, 99.9, 100.0}) {
        set.set(Id::MasterBreakup, master);
        EXPECT_EQ(levelAt(set, 3.0), static_cast<float>(master) * 0.01f);
        const SignalLevel level(set.reader(), kRate);
        EXPECT_EQ(level.atEarlier({2.0f, 1.0f}),
                  std::vector<float>(2, static_cast<float>(master) * 0.01f));
    }
    EXPECT_EQ(fractalNoiseCalls(), before);
    set.set(Id::MasterBreakup, 100);
    EXPECT_EQ(levelAt(set, 3.0), 1.0f);
}

TEST(SignalLevel, WithVariationEachLevelEvaluatesTheNoiseOnce) {
    const ParameterSet set;
    const SignalLevel level(set.reader(), kRate);
    const auto before = fractalNoiseCalls();
    level.at(2.0, 2.0);
    EXPECT_EQ(fractalNoiseCalls(), before + 1);
    level.atEarlier({0.12f, 0.08f, 0.04f});
    EXPECT_EQ(fractalNoiseCalls(), before + 4);
}

// The place on the noise curve is the phase, in cycles, plus an amount that belongs to the seed.
TEST(SignalLevel, ASeedMovesTheNoiseAlongItsCurveByAFixedAmount) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 30);
    // What nextRandom gives from states of 5 and of 6, times 1 / 32767 and 100.
    const std::pair<std::int32_t, int> seeds[] = {{5, 28553}, {6, 21419}};
    for (const auto& [seed, random] : seeds) {
        set.set(Id::Seed, seed);
        const float offset = static_cast<float>(random) * 3.0518509e-05f * 100.0f;
        for (int k = 0; k < 100; ++k) {
            const double time = k / 25.0;
            const float place = static_cast<float>(time * 50) * 0.01f + offset;
            const float noise = noiseTable().fractalNoise(place, 8);
            EXPECT_NEAR(levelAt(set, time), std::clamp(0.5f + 0.3f * noise, 0.0f, 1.0f), 1e-3)
                << "seed " << seed << ", frame " << k;
        }
    }
}

TEST(SignalLevel, WithoutVariationTheSeedMeansNothing) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 0);
    ParameterSet other;
    other.set(Id::BreakupVariation, 0).set(Id::Seed, 9999);
    for (int k = 0; k < 20; ++k) EXPECT_EQ(levelAt(set, k), levelAt(other, k));
}

TEST(SignalLevel, TheSameTimeGivesTheSameLevelInAnyOrder) {
    ParameterSet set;
    set.animate(Id::BreakupSpeed, {{0.0, 10.0}, {2.0, 300.0}});
    const SignalLevel level(set.reader(), kRate);
    std::vector<float> forwards;
    for (int k = 0; k < 60; ++k) forwards.push_back(level.at(k / kRate, k / kRate));
    for (int k = 59; k >= 0; --k) {
        const auto i = static_cast<std::size_t>(k);
        EXPECT_EQ(level.at(k / kRate, k / kRate), forwards[i]);
        EXPECT_EQ(levelAt(set, k / kRate), forwards[i]);
    }
}

TEST(SignalLevel, ThePlayTimeMovesTheWobbleAndNotTheFrameTime) {
    const ParameterSet set;
    const SignalLevel level(set.reader(), kRate);
    EXPECT_EQ(level.at(7.0, 2.0), level.at(2.0, 2.0));
    EXPECT_NE(level.at(7.0, 7.0), level.at(7.0, 2.0));
    // Wound back before the start, the phase stays at its beginning.
    EXPECT_EQ(level.at(7.0, -3.0), level.at(0.0, 0.0));
}

TEST(SignalLevel, TheFramesOwnMasterBreakupIsHeldAndAnEarlierOneIsNot) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 0).animate(Id::MasterBreakup, {{0.0, 150.0}});
    const SignalLevel level(set.reader(), kRate);
    EXPECT_EQ(level.at(1.0, 1.0), 1.0f);
    EXPECT_EQ(level.atEarlier({1.0f}).front(), 150.0f * 0.01f);
    // The hold to 0..1 comes with the wobble.
    set.set(Id::BreakupVariation, 0.001);
    EXPECT_EQ(SignalLevel(set.reader(), kRate).atEarlier({1.0f}).front(), 1.0f);
}

TEST(SignalLevel, AVariationBelowZeroIsNone) {
    ParameterSet set;
    set.animate(Id::BreakupVariation, {{0.0, -80.0}}).set(Id::MasterBreakup, 70);
    EXPECT_EQ(levelAt(set, 1.0), 70.0f * 0.01f);
    EXPECT_EQ(SignalLevel(set.reader(), kRate).atEarlier({1.0f}).front(), 70.0f * 0.01f);
}

TEST(SignalLevel, StaysInItsRangeWhateverTheParametersAre) {
    constexpr double kHuge[] = {1e300, -1e300, 1e40, 1e-300};
    for (const double variation : kHuge) {
        for (const double speed : kHuge) {
            ParameterSet set;
            set.animate(Id::BreakupVariation, {{0.0, variation}});
            set.animate(Id::BreakupSpeed, {{0.0, speed}});
            for (const float level : SignalLevel(set.reader(), kRate).atEarlier({9.0f, 0})) {
                EXPECT_TRUE(level >= 0.0f && level <= 1.0f) << variation << ' ' << speed;
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::test
