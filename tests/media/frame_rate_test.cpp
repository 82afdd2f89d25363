#include "media/video/frame_rate.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace ruvex::media {
namespace {

constexpr Rational kMilliseconds{1, 1000};
constexpr Rational kTicks{1, 90000};

using Numbers = std::vector<std::int64_t>;

/// The times of the frames `numbers` at `rate`, rounded to `unit`, beginning at `start`.
Numbers timesOf(const Numbers& numbers, const Rational& rate, const Rational& unit,
                std::int64_t start = 0) {
    Numbers times;
    for (const std::int64_t number : numbers) {
        const double seconds = static_cast<double>(number) / rate.value();
        times.push_back(start + std::llround(seconds / unit.value()));
    }
    return times;
}

/// 0 to count - 1 without the numbers that `isMissing` names.
template <class IsMissing>
Numbers numbersWithout(std::int64_t count, IsMissing isMissing) {
    Numbers numbers;
    for (std::int64_t k = 0; k < count; ++k) {
        if (!isMissing(k)) {
            numbers.push_back(k);
        }
    }
    return numbers;
}

Numbers numbersTo(std::int64_t count) {
    return numbersWithout(count, [](std::int64_t) { return false; });
}

FrameRate choose(const Numbers& times, const Rational& unit,
                 const std::vector<Rational>& declared = {}) {
    return chooseFrameRate({times, unit}, declared);
}

/// Times at `rate` that are each moved by at most `most` seconds.
Numbers jittered(const Rational& rate, double most, int count, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> move(-most, most);
    Numbers times;
    for (int k = 0; k < count; ++k) {
        times.push_back(std::llround((k / rate.value() + move(random)) / kTicks.value()));
    }
    return times;
}

/// Pictures that share a frame with the picture before them.
int sharedFrames(const Numbers& times, const Rational& unit, const Rational& rate) {
    const Numbers places = placesOf({times, unit}, rate);
    int shared = 0;
    for (std::size_t i = 1; i < places.size(); ++i) {
        shared += places[i] <= places[i - 1] ? 1 : 0;
        EXPECT_LE(std::abs(static_cast<double>(times[i] - times[0]) * unit.value() * rate.value() -
                           static_cast<double>(places[i])),
                  shared == 0 ? 0.75 : 1.0);
    }
    return shared;
}

/// Pictures whose nearest frame is that of the picture before them.
int sameNearest(const Numbers& times, const Rational& unit, const Rational& rate) {
    const auto nearest = [&](std::size_t i) {
        return std::llround(static_cast<double>(times[i] - times[0]) * unit.value() * rate.value());
    };
    int same = 0;
    for (std::size_t i = 1; i < times.size(); ++i) {
        same += nearest(i) == nearest(i - 1) ? 1 : 0;
    }
    return same;
}

TEST(FrameRate, AConstantRateIsItselfInEveryTimeBase) {
    for (const Rational& rate : {Rational{5, 1},
                                 {12, 1},
                                 {25, 2},
                                 {15, 1},
                                 {24000, 1001},
                                 {24, 1},
                                 {25, 1},
                                 {30000, 1001},
                                 {30, 1},
                                 {50, 1},
                                 {60, 1},
                                 {120, 1},
                                 {17, 1},
                                 {240, 1}}) {
        for (const Rational& unit : {kMilliseconds, kTicks, Rational{1, 15360}}) {
            const FrameRate chosen = choose(timesOf(numbersTo(2000), rate, unit, 77), unit);
            EXPECT_EQ(chosen.rate, rate) << toText(rate) << " in " << toText(unit);
            EXPECT_FALSE(chosen.uneven) << toText(rate) << " in " << toText(unit);
        }
    }
}

TEST(FrameRate, ADeclaredRateThatFitsIsTaken) {
    for (const Rational& rate : {Rational{2997, 100}, {617, 50}, {10, 3}}) {
        const FrameRate chosen = choose(timesOf(numbersTo(37), rate, kMilliseconds), kMilliseconds,
                                        {rate, Rational{1000, 1}});
        EXPECT_EQ(chosen.rate, rate) << toText(rate);
        EXPECT_FALSE(chosen.uneven) << toText(rate);
    }
}

TEST(FrameRate, GapsDoNotChangeTheGrid) {
    const auto missing = [](std::int64_t k) { return k == 45; };
    const auto thirds = [](std::int64_t k) { return k % 3 == 2; };
    const auto fifths = [](std::int64_t k) { return k % 5 == 4; };
    const auto bursts = [](std::int64_t k) { return (k / 60) % 2 == 0 && k % 5 != 0; };
    for (const Rational& rate : {Rational{15, 1},
                                 {24000, 1001},
                                 {25, 1},
                                 {30000, 1001},
                                 {30, 1},
                                 {60000, 1001},
                                 {60, 1}}) {
        for (const Rational& unit : {kMilliseconds, kTicks, Rational{1, 15360}}) {
            for (const Numbers& numbers :
                 {numbersWithout(400, missing), numbersWithout(400, thirds),
                  numbersWithout(400, fifths), numbersWithout(400, bursts)}) {
                const Numbers times = timesOf(numbers, rate, unit);
                // The average, which containers declare, fits none of these.
                const auto mean = static_cast<std::int64_t>(numbers.size()) * unit.den;
                const FrameRate chosen = choose(times, unit, {makeRational(mean, times.back())});
                EXPECT_EQ(chosen.rate, rate) << toText(rate) << " in " << toText(unit);
                EXPECT_TRUE(chosen.uneven) << toText(rate) << " in " << toText(unit);
            }
        }
    }
}

// A time base as coarse as the rate, as in AVI, is the grid.
TEST(FrameRate, ACoarseTimeBaseIsTheGrid) {
    for (const auto& isMissing : std::vector<bool (*)(std::int64_t)>{
             [](std::int64_t k) { return k == 45; }, [](std::int64_t k) { return k % 3 == 2; },
             [](std::int64_t k) { return k % 30 > 2; }}) {
        const Numbers times = numbersWithout(150, isMissing);
        EXPECT_EQ(choose(times, {1, 30}, {{298, 10}}).rate, (Rational{30, 1}));
    }
}

// GIF counts in hundredths of a second: 30 frames a second are 3, 3 and 4 of them.
TEST(FrameRate, HundredthsOfASecondAreRecognised) {
    constexpr Rational kHundredths{1, 100};
    for (const Rational& rate : {Rational{10, 1}, {24, 1}, {25, 1}, {30, 1}, {50, 1}}) {
        const FrameRate chosen = choose(timesOf(numbersTo(90), rate, kHundredths), kHundredths);
        EXPECT_EQ(chosen.rate, rate);
        EXPECT_FALSE(chosen.uneven);
    }
    const FrameRate varied = choose({0, 5, 15, 20, 60, 65}, kHundredths);
    EXPECT_EQ(varied.rate, (Rational{20, 1}));
    EXPECT_TRUE(varied.uneven);
}

TEST(FrameRate, JitterAroundAUsualRateIsThatRate) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        const Numbers calm = jittered({30, 1}, 0.002, 600, seed);
        EXPECT_EQ(choose(calm, kTicks).rate, (Rational{30, 1}));
        EXPECT_FALSE(choose(calm, kTicks).uneven);
        const Numbers times = jittered({30, 1}, 0.008, 600, seed);
        EXPECT_EQ(choose(times, kTicks).rate, (Rational{30, 1}));
        EXPECT_TRUE(choose(times, kTicks).uneven);
        EXPECT_EQ(sharedFrames(times, kTicks, {30, 1}), 0);
    }
}

// A clock that runs at 29.987 drifts by eight frames in ten minutes.
TEST(FrameRate, ADriftingClockLosesNoPicture) {
    for (unsigned seed = 0; seed < 10; ++seed) {
        const Numbers times = jittered({29987, 1000}, 0.004, 18000, seed);
        const FrameRate chosen = choose(times, kTicks);
        EXPECT_EQ(chosen.rate, (Rational{30, 1}));
        EXPECT_TRUE(chosen.uneven);
        EXPECT_EQ(sharedFrames(times, kTicks, chosen.rate), 0);
    }
}

TEST(FrameRate, AnyTimesLeadToTheSlowestUsualRateThatKeepsThem) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        Numbers times = {0};
        const std::int64_t shortest = 900 + random() % 3000;
        for (int k = 0; k < 60; ++k) {
            times.push_back(times.back() + shortest + static_cast<std::int64_t>(random() % 9000));
        }
        const FrameRate chosen = choose(times, kTicks);
        EXPECT_TRUE(chosen.uneven);
        EXPECT_LE(chosen.rate.value(), 120);
        EXPECT_EQ(sharedFrames(times, kTicks, chosen.rate), 0) << round;
        for (const Rational& slower : {Rational{24000, 1001},
                                       {24, 1},
                                       {25, 1},
                                       {30000, 1001},
                                       {30, 1},
                                       {48, 1},
                                       {50, 1},
                                       {60000, 1001},
                                       {60, 1}}) {
            if (slower.value() < chosen.rate.value()) {
                EXPECT_GT(sameNearest(times, kTicks, slower), 0) << round << toText(slower);
            }
        }
    }
}

TEST(FrameRate, FasterBurstsThan120AreLeftAt120) {
    const FrameRate chosen = choose({0, 1000, 1300, 1600, 1900, 90000, 180000}, kTicks);
    EXPECT_EQ(chosen.rate, (Rational{120, 1}));
    EXPECT_TRUE(chosen.uneven);
}

TEST(FrameRate, OnePictureHasADeclaredRateOr25) {
    EXPECT_EQ(choose({5}, kMilliseconds).rate, (Rational{25, 1}));
    EXPECT_EQ(choose({5}, kMilliseconds, {{1000, 1}, {24, 1}}).rate, (Rational{24, 1}));
    EXPECT_FALSE(choose({5}, kMilliseconds).uneven);
}

}  // namespace
}  // namespace ruvex::media
