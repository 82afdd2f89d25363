// The signal level, its walks and the player against their quadratic twins, bit for bit.

#include <bit>
#include <cstring>
#include <gtest/gtest.h>

#include "effect/frame_integral.h"
#include "effect/frame_values.h"
#include "effect/player.h"
#include "effect/signal_walks.h"
#include "tests/effect/support/noise_count.h"
#include "tests/effect/support/parameter_set.h"
#include "tests/effect/twins/player_twin.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr std::array kRates{24000.0 / 1001, 23.976, 24.0,  25.0, 30000.0 / 1001, 29.97,
                            30.0,           50.0,   59.94, 60.0, 60000.0 / 1001, 120.0};

// Values of the control's range, its ends and, now and then, values far beyond.
double valueOf(Random& random, Id id) {
    const Range range = *row(id).enteredRange();
    switch (random.whole(0, 5)) {
        case 0:
            return range.low;
        case 1:
            return range.high;
        case 2:
            return row(id).defaultValue;
        case 3:
            if (random.chance(70)) break;
            return random.real(-3.0f, 3.0f) * range.high;
        default:
            break;
    }
    return range.low + (range.high - range.low) * random.real(0.0f, 1.0f);
}

double speedOf(Random& random) {
    constexpr std::array kSpeeds{100.0, 100.0, 100.0, 0.0, 50.0, -100.0, -200.0, 800.0, -800.0};
    return random.chance(75) ? random.oneOf(kSpeeds) : valueOf(random, Id::PlaySpeed);
}

void fill(Random& random, ParameterSet& set, Id id) {
    const auto value = [&] { return id == Id::PlaySpeed ? speedOf(random) : valueOf(random, id); };
    if (random.chance(40)) {
        set.set(id, value());
        return;
    }
    std::vector<DSKey> keys;
    for (int n = random.whole(1, 5); n > 0; --n) {
        const double time = random.real(-1.0f, 9.0f);
        keys.push_back({time, value(), static_cast<DSKeyMode>(random.whole(0, 2))});
    }
    set.animate(id, keys);
}

constexpr std::array kAnimated{
    Id::MasterBreakup,     Id::BreakupVariation, Id::BreakupSpeed,     Id::LineSpeedMax,
    Id::LineThreshold,     Id::VertOffsetMax,    Id::VertRollSpeedMax, Id::VertOffsetThreshold,
    Id::VertRollThreshold, Id::ShashThreshold,   Id::PlaySpeed};

struct Case {
    explicit Case(Random& random) {
        for (const Id id : kAnimated) fill(random, set, id);
        // A level without a wobble takes a path of its own, and low thresholds make walks long.
        if (random.chance(20)) set.set(Id::BreakupVariation, 0.0);
        if (random.chance(40)) set.set(Id::VertRollThreshold, random.real(0.0f, 30.0f));
        if (random.chance(40)) set.set(Id::LineThreshold, random.real(0.0f, 30.0f));
        set.set(Id::RepeatFrames, random.whole(-1, 6));
        rate = random.oneOf(kRates);
        seed = random.chance(50) ? random.whole(0, 10000) : random.whole(INT32_MIN, INT32_MAX);
        set.set(Id::Seed, seed);
        const int frame = random.whole(0, random.chance(30) ? 300 : 90);
        time = frame / rate;
        if (random.chance(20)) time += random.real(-0.5f, 0.5f) / rate;
    }

    ParameterSet set;
    double rate;
    std::int32_t seed;
    double time;
};

template <class T>
::testing::AssertionResult sameBits(T got, T wanted) {
    using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;
    if (std::bit_cast<Bits>(got) == std::bit_cast<Bits>(wanted)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << got << " instead of " << wanted;
}

void forCases(std::uint32_t base, int count, const auto& check) {
    for (int i = 0; i < cases(count); ++i) {
        const std::uint32_t seed = base + static_cast<std::uint32_t>(i);
        SCOPED_TRACE("case " + std::to_string(seed));
        Random random(seed);
        const Case given(random);
        check(given);
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(SignalProperty, IntegralsAreTheStepsAsWritten) {
    forCases(10000, 400, [](const Case& given) {
        const ParameterReader reader = given.set.reader();
        const twin::SignalTwin twin{reader, given.rate, given.seed};
        for (const Id id : {Id::BreakupSpeed, Id::PlaySpeed}) {
            for (const double end : {given.time, -given.time, given.time * 0.37}) {
                ASSERT_TRUE(sameBits(integrateParameter(reader.curve(id), given.rate, 0.0, end),
                                     twin.integral(id, 0.0, end)));
            }
        }
    });
}

TEST(SignalProperty, RisingEndsCostOneWalkAndNoBit) {
    forCases(20000, 200, [](const Case& given) {
        const ParameterReader reader = given.set.reader();
        const twin::SignalTwin twin{reader, given.rate, given.seed};
        FrameIntegral integral(reader.curve(Id::BreakupSpeed), given.rate, 0.0);
        for (int k = -1; k <= 40; ++k) {
            const double end = given.time * k / 40;
            ASSERT_TRUE(sameBits(integral.upTo(end), twin.integral(Id::BreakupSpeed, 0.0, end)));
        }
    });
}

TEST(SignalProperty, TheTapeIsWhereTheTwinSaysItIs) {
    forCases(30000, 1500, [](const Case& given) {
        const ParameterReader reader = given.set.reader();
        const twin::PlayerTwin twin{reader, given.rate};
        const TapePosition tape = tapePosition(reader, {given.time, given.rate});
        const double playTime = twin.playTime(given.time);
        const auto position = static_cast<float>(twin.frameRate() * playTime);
        ASSERT_TRUE(sameBits(tape.playTime, playTime));
        ASSERT_TRUE(sameBits(tape.sourcePosition, position));
        ASSERT_EQ(tape.sourceFrame, twin.frameAt(position));
        ASSERT_EQ(tape.shownFrame, twin.shown(tape.sourceFrame));
    });
}

TEST(SignalProperty, ThePlayStateIsTheTwins) {
    forCases(40000, 1500, [](const Case& given) {
        const ParameterReader reader = given.set.reader();
        const twin::PlayerTwin twin{reader, given.rate};
        const PlayStatus play = playStatusAt(reader, {given.time, given.rate});
        const auto wanted = twin.stateAt(given.time);
        ASSERT_EQ(play.state, PlayState{wanted.state});
        ASSERT_EQ(play.framesAtLowSpeed, wanted.framesAtLowSpeed);
        ASSERT_TRUE(sameBits(play.speedAtStart, wanted.speedAtStart));
    });
}

TEST(SignalProperty, LevelAndWalksAreTheQuadraticOnes) {
    int acted = 0;
    forCases(50000, 1500, [&acted](const Case& given) {
        const ParameterReader reader = given.set.reader();
        const twin::SignalTwin twin{reader, given.rate, given.seed};
        const TapePosition tape = tapePosition(reader, {given.time, given.rate});
        const SignalLevel level(reader, given.rate);
        const float breakup = level.at(given.time, tape.playTime);
        ASSERT_TRUE(sameBits(breakup, twin.level(given.time, tape.playTime)));

        const FrameTime time(given.time, given.rate);
        const auto frameNow = static_cast<float>(twin.frameRate() * given.time);
        ASSERT_TRUE(sameBits(time.frame, frameNow));
        const SignalWalks walks = walkBack(reader, level, time, tape.sourcePosition, breakup);
        const SignalState signal = signalAt(reader, time, tape);
        ASSERT_TRUE(sameBits(signal.breakup, breakup));
        ASSERT_TRUE(sameBits(signal.walks.lineSum, walks.lineSum));
        ASSERT_TRUE(sameBits(walks.lineSum, twin.lineSum(tape.sourcePosition, breakup)));
        ASSERT_EQ(walks.verticalSum, twin.verticalSum(given.time, tape.sourcePosition, breakup));
        ASSERT_EQ(walks.shashFramesOn, twin.shashFramesOn(given.time, frameNow, breakup));
        acted += walks.lineSum != 0.0 && walks.verticalSum != 0 && walks.shashFramesOn != 0;
    });
    EXPECT_GT(acted, cases(1500) / 50) << "too few cases in which the walks do anything";
}

// Compares the values of frames `first` to `last`, computed at once, with those of each frame.
void expectSeriesOfFrames(const ParameterReader& reader, double rate, int first, int last) {
    std::vector<FrameTime> times;
    for (int k = first; k <= last; ++k) times.emplace_back(k / rate, rate);
    std::vector<FrameValues> series(times.size());
    valuesOfFrames(reader, times, series.data());
    for (std::size_t i = 0; i < times.size(); ++i) {
        const FrameValues wanted = valuesOfFrame(reader, times[i]);
        ASSERT_EQ(std::memcmp(&series[i], &wanted, sizeof wanted), 0)
            << "frame " << first + static_cast<int>(i);
    }
}

TEST(SignalProperty, ASeriesHasTheValuesOfEachFrame) {
    forCases(60000, 300, [](const Case& given) {
        const int first = static_cast<int>(given.time * given.rate / 3);
        expectSeriesOfFrames(given.set.reader(), given.rate, first, first + 70);
    });
}

// The broken signal rolls through all frames, so the sums of many frames run to the first.
TEST(SignalProperty, ASeriesOfALongRollHasTheValuesOfEachFrame) {
    ParameterSet set;
    set.set(Id::VertRollThreshold, 0).set(Id::LineThreshold, 0).set(Id::MasterBreakup, 95);
    set.animate(Id::VertRollSpeedMax, {{0.0, 1000.0}, {20.0, -300.0}});
    for (const double playSpeed : {100.0, 50.0, 37.0, -100.0, 0.0}) {
        set.set(Id::PlaySpeed, playSpeed);
        expectSeriesOfFrames(set.reader(), 30000.0 / 1001, 0, 300);
    }
}

TEST(SignalProperty, ASeriesBeyondThePrecisionOfFrameNumbersHasTheValuesOfEachFrame) {
    ParameterSet set;
    set.set(Id::BreakupVariation, 0);
    constexpr int kWalksEnd = 1 << 25;
    expectSeriesOfFrames(set.reader(), 25.0, kWalksEnd, kWalksEnd + 20);
}

// One level a frame of the time line, however many frames are asked for.
TEST(SignalProperty, ASeriesAtNormalSpeedNeedsOneLevelAFrame) {
    const ParameterSet set;
    std::vector<FrameTime> times;
    for (int k = 0; k < 1000; ++k) times.emplace_back(k / 25.0, 25.0);
    std::vector<FrameValues> series(times.size());
    const auto before = fractalNoiseCalls();
    valuesOfFrames(set.reader(), times, series.data());
    EXPECT_LE(fractalNoiseCalls() - before, 2 * times.size());
}

}  // namespace
}  // namespace ruvex::test
