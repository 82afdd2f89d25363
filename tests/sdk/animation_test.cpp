#include "sdk/properties/animation.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

DSAnimation animate(std::vector<DSKey> keys) {
    return DSAnimation::fromKeys(std::move(keys)).value();
}

TEST(Animation, IsLinearBetweenKeys) {
    const auto animation = animate({{1.0, 10.0}, {3.0, 20.0}});
    EXPECT_EQ(animation.valueAt(1.0), 10.0);
    EXPECT_EQ(animation.valueAt(1.5), 12.5);
    EXPECT_EQ(animation.valueAt(2.0), 15.0);
    EXPECT_EQ(animation.valueAt(3.0), 20.0);
}

TEST(Animation, HoldsTheFirstAndLastValueOutside) {
    const auto animation = animate({{1.0, 10.0}, {3.0, 20.0}});
    EXPECT_EQ(animation.valueAt(0.999), 10.0);
    EXPECT_EQ(animation.valueAt(-kInfinity), 10.0);
    EXPECT_EQ(animation.valueAt(3.001), 20.0);
    EXPECT_EQ(animation.valueAt(kInfinity), 20.0);
}

TEST(Animation, OneKeyHoldsEverywhere) {
    const auto animation = animate({{2.0, -7.0}});
    EXPECT_EQ(animation.valueAt(-100.0), -7.0);
    EXPECT_EQ(animation.valueAt(2.0), -7.0);
    EXPECT_EQ(animation.valueAt(100.0), -7.0);
}

TEST(Animation, SortsKeys) {
    const auto animation = animate({{3.0, 20.0}, {1.0, 10.0}, {2.0, 0.0}});
    const std::vector<DSKey> sorted = {{1.0, 10.0}, {2.0, 0.0}, {3.0, 20.0}};
    EXPECT_EQ(animation.keys(), sorted);
    EXPECT_EQ(animation.valueAt(1.5), 5.0);
    EXPECT_EQ(animation.valueAt(2.5), 10.0);
}

TEST(Animation, OfKeysAtOneTimeTheLastGivenWins) {
    const auto animation = animate({{2.0, 1.0}, {1.0, 0.0}, {2.0, 5.0}, {2.0, 3.0}, {1.0, 8.0}});
    const std::vector<DSKey> kept = {{1.0, 8.0}, {2.0, 3.0}};
    EXPECT_EQ(animation.keys(), kept);
}

TEST(Animation, ZeroAndMinusZeroAreOneTime) {
    EXPECT_EQ(animate({{0.0, 1.0}, {-0.0, 2.0}}).keys().size(), 1u);
}

TEST(Animation, AHeldKeyKeepsItsValueUntilTheNextOne) {
    const auto animation =
        animate({{1.0, 10.0, DSKeyMode::Hold}, {3.0, 20.0}, {5.0, 30.0, DSKeyMode::Hold}});
    EXPECT_EQ(animation.valueAt(1.0), 10.0);
    EXPECT_EQ(animation.valueAt(std::nextafter(3.0, 0.0)), 10.0);
    EXPECT_EQ(animation.valueAt(3.0), 20.0);
    EXPECT_EQ(animation.valueAt(4.0), 25.0);
    EXPECT_EQ(animation.valueAt(6.0), 30.0);
}

TEST(Animation, ASmoothKeyEasesToTheNextOne) {
    const auto animation = animate({{1.0, 10.0, DSKeyMode::Smooth}, {3.0, 20.0}, {5.0, 30.0}});
    EXPECT_EQ(animation.valueAt(1.0), 10.0);
    // A quarter of the way: 10 * 1/16 * (3 - 1/2).
    EXPECT_EQ(animation.valueAt(1.5), 11.5625);
    EXPECT_EQ(animation.valueAt(2.0), 15.0);
    EXPECT_EQ(animation.valueAt(2.5), 18.4375);
    EXPECT_EQ(animation.valueAt(3.0), 20.0);
    EXPECT_EQ(animation.valueAt(3.5), 22.5);
}

TEST(Animation, TheModeIsThatOfTheKeyThatBeginsTheSegment) {
    const auto animation = animate({{1.0, 0.0, DSKeyMode::Hold}, {3.0, 1.0, DSKeyMode::Smooth}});
    EXPECT_EQ(animation.modeAt(0.5), DSKeyMode::Linear);
    EXPECT_EQ(animation.modeAt(1.0), DSKeyMode::Hold);
    EXPECT_EQ(animation.modeAt(2.9), DSKeyMode::Hold);
    EXPECT_EQ(animation.modeAt(3.0), DSKeyMode::Smooth);
    EXPECT_EQ(animation.modeAt(9.0), DSKeyMode::Smooth);
}

TEST(Animation, RefusesAnUnknownMode) {
    EXPECT_FALSE(DSAnimation::fromKeys({{0.0, 1.0, static_cast<DSKeyMode>(3)}}));
}

TEST(Animation, RefusesWhatIsNotANumber) {
    EXPECT_FALSE(DSAnimation::fromKeys({}));
    EXPECT_FALSE(DSAnimation::fromKeys({{0.0, 1.0}, {kNan, 1.0}}));
    EXPECT_FALSE(DSAnimation::fromKeys({{0.0, kNan}}));
    EXPECT_FALSE(DSAnimation::fromKeys({{0.0, kInfinity}}));
    EXPECT_FALSE(DSAnimation::fromKeys({{-kInfinity, 0.0}}));
}

/// The value by a walk over all keys.
double valueByWalk(const std::vector<DSKey>& keys, double time) {
    double value = keys.front().value;
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
        const DSKey& a = keys[i];
        const DSKey& b = keys[i + 1];
        if (time >= a.time && time < b.time) {
            value = a.value + (b.value - a.value) * ((time - a.time) / (b.time - a.time));
        }
    }
    return time >= keys.back().time ? keys.back().value : value;
}

TEST(Animation, AgreesWithAWalkOverAllKeys) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> number(-50.0, 50.0);
    for (int round = 0; round < 200; ++round) {
        std::vector<DSKey> keys(1 + random() % 12);
        for (DSKey& key : keys) key = {number(random), number(random)};
        const auto animation = animate(keys);
        for (int i = 0; i < 50; ++i) {
            const double time = 1.2 * number(random);
            ASSERT_EQ(animation.valueAt(time), valueByWalk(animation.keys(), time));
        }
        for (const DSKey& key : animation.keys()) ASSERT_EQ(animation.valueAt(key.time), key.value);
    }
}

}  // namespace
