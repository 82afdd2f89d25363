// Random televisions, and the picture that each must show.

#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>

#include "tests/imaging/support/random.h"
#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"
#include "tests/stages/twins/television_twin.h"

namespace ruvex::test {

template <class P>
std::unique_ptr<Television<P>> randomTelevision(Random& random) {
    const int width = random.chance(15) ? random.whole(1, 3) : random.whole(1, 48);
    const int height = random.chance(15)   ? random.whole(1, 3)
                       : random.chance(15) ? random.whole(60, 160)
                                           : random.whole(1, 40);
    auto set = std::make_unique<Television<P>>(width, height, random.bits());
    constexpr float kAspects[] = {1.0f, 1.0f, 1.0666667f, 0.9f, 2.0f, 0.5f};
    set->aspect = random.oneOf(kAspects);
    SignalParameters& signal = set->signal;
    signal.seed = random.chance(10) ? -random.whole(1, 5000) : random.whole(0, 10000);
    signal.sourceFrame = signal.sourceFrameIndex = random.whole(-50, 4000);
    signal.outputFrame = random.whole(0, 4000);
    signal.scale = random.real(0.05f, 1.5f);
    signal.breakup = random.chance(10) ? 1.0f : random.real(0.0f, 1.0f);
    signal.borderAlpha = random.whole(0, 2);
    return set;
}

inline float randomThreshold(Random& random) {
    return random.chance(30) ? 0.0f : random.real(0.0f, 0.9f);
}

template <class P>
void chooseTones(Random& random, SignalParameters& signal) {
    const auto part = [&] { return random.chance(30) ? 0.0f : random.real(-1.0f, 1.0f); };
    signal.tvType = random.whole(0, 2);
    signal.contrast = part();
    signal.brightness = part();
    signal.gunRed = part();
    signal.gunGreen = part();
    signal.gunBlue = part();
    signal.colour = random.chance(20) ? 0.0f : random.real(-1.0f, 10.0f);
    for (int k = 0; k < 3; ++k) signal.tint[k] = random.real(0.0f, kTwinWhite<P>);
}

inline void chooseRoll(Random& random, SignalParameters& signal) {
    signal.verticalOffset =
        random.chance(10) ? random.whole(-1000000, 1000000) : random.whole(-100, 100);
}

inline void chooseEdges(Random& random, SignalParameters& signal) {
    signal.edgeThreshold = randomThreshold(random);
    signal.edgeDistortionMax = random.real(-300.0f, 300.0f);
    signal.edgeJaggedness = random.real(0.0f, 300.0f);
    signal.edgePhase = random.real(0.0f, 500.0f);
    signal.emInterference = random.chance(40) ? 0.0f : random.real(0.0f, 3.0f);
}

inline void chooseColourLoss(Random& random, SignalParameters& signal) {
    signal.colourThreshold = randomThreshold(random);
    signal.colourDegradeMax = random.real(0.0f, 1.0f);
}

inline void chooseGuns(Random& random, SignalParameters& signal) {
    for (float* gun : {&signal.gunRedX, &signal.gunRedY, &signal.gunGreenX, &signal.gunGreenY,
                       &signal.gunBlueX, &signal.gunBlueY}) {
        *gun = random.chance(40) ? random.real(-1.2f, 1.2f) : random.real(-80.0f, 80.0f);
    }
}

inline void chooseGhosts(Random& random, SignalParameters& signal) {
    signal.numGhosts = random.whole(0, 10);
    signal.ghostThreshold = randomThreshold(random);
    signal.ghostDistance = random.real(-300.0f, 300.0f);
    signal.ghostStrength = random.real(0.0f, 3.0f);
    signal.ghostPhase = random.real(0.0f, 500.0f);
}

inline void chooseSnow(Random& random, SignalParameters& signal) {
    signal.tvType = random.whole(0, 2);
    signal.snowThreshold = randomThreshold(random);
    signal.snowMax = random.real(-2.0f, 2.0f);
    signal.snowSoftness = random.real(0.0f, 8.0f);
    signal.snowSparseness = random.chance(20)   ? 0.0f
                            : random.chance(10) ? 1.0f
                                                : random.real(0.0f, 1.0f);
}

inline void chooseShash(Random& random, SignalParameters& signal) {
    signal.shashType = random.whole(0, 5);
    signal.shashPeriod = random.whole(0, 30);
    signal.shashFramesOn = random.whole(0, 500);
    signal.shashThreshold = randomThreshold(random);
    signal.shashAmountMax = random.real(0.0f, 1.0f);
    if (!random.chance(30)) return;
    // The shash alone.
    signal.breakup = signal.shashAmountMax = 1.0f;
    signal.shashThreshold = 0.0f;
}

inline void chooseLines(Random& random, SignalParameters& signal) {
    constexpr float kNearAxes[] = {0.0008726647f, 1.571669f, 3.1424656f, 4.7132616f};
    signal.tvType = random.whole(0, 2);
    signal.lineThreshold = randomThreshold(random);
    // Whole degrees, of which none is a multiple of 90.
    signal.lineAngle = random.chance(15)
                           ? random.oneOf(kNearAxes)
                           : static_cast<float>(random.whole(0, 3) * 90 + random.whole(1, 89)) *
                                 3.1415927f / 180.0f;
    signal.lineSpacing = random.real(0.5f, 60.0f);
    signal.lineOffset = random.real(-5000.0f, 5000.0f);
}

inline void chooseTransport(Random& random, SignalParameters& signal) {
    signal.playState = random.whole(0, 2);
    signal.dvdMode = random.chance(10);
    signal.framesAtLowSpeed = random.whole(0, 14);
    signal.playSpeedAtStart = random.real(-8.0f, 8.0f);
}

/// Runs the set with that many workers and says where its picture first differs from the twin's;
/// empty if it does not.
template <class P>
std::string televisionDifference(Television<P>& set, int workers) {
    Workers fixed(workers);
    TwinPicture<P> source(0, 0, set.source.width(), set.source.height());
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) source.at(x, y) = set.source.at(x, y);
    }
    TwinPicture<P> wanted = televisionTwin(source, set.signal, set.aspect, workers);
    set.run();
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) {
            const P& got = set.target.at(x, y);
            if (got == wanted.at(x, y)) continue;
            std::ostringstream text;
            text << "pixel " << x << ", " << y << " of " << source.width << "x" << source.height
                 << ", " << workers << " workers:";
            for (int k = 0; k < 4; ++k) text << ' ' << +got.c[k] << '/' << +wanted.at(x, y).c[k];
            return text.str() + " (got/wanted)";
        }
    }
    return {};
}

/// Compares random televisions, with what `choose` makes faulty.
template <class P, class Choose>
void compareCases(int count, Choose choose) {
    for (int i = 0; i < count; ++i) {
        Random random(static_cast<std::uint32_t>(i) + 1);
        auto set = randomTelevision<P>(random);
        choose(random, set->signal);
        ASSERT_EQ(televisionDifference(*set, random.whole(1, 9)), "") << "case " << i;
    }
}

}  // namespace ruvex::test
