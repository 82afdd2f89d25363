// The signal level, its walks and the player against their quadratic twins, bit for bit.

#include <bit>
#include <gtest/gtest.h>

#include "effect/frame_integral.h"
#include "effect/player.h"
#include "effect/signal_walks.h"
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

}  // namespace
}  // namespace ruvex::test
