// Random televisions and what is wrong with them.

#pragma once

#include <memory>

#include "imaging/maths/random.h"
#include "tests/imaging/support/random.h"
#include "tests/stages/support/television.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

/// What every television has: a source, an aspect, a frame and a level.
template <class P>
void chooseSet(Random& random, Television<P>& set) {
    constexpr float kAspects[] = {1.0f, 1.0f, 1.0666667f, 0.9f, 2.0f, 0.5f};
    set.aspect = random.oneOf(kAspects);
    SignalParameters& signal = set.signal;
    signal.seed = random.chance(10) ? -random.whole(1, 5000) : random.whole(0, 10000);
    signal.sourceFrame = signal.sourceFrameIndex = random.whole(-50, 4000);
    signal.outputFrame = random.whole(0, 4000);
    signal.scale = random.real(0.05f, 1.5f);
    signal.breakup = random.chance(10) ? 1.0f : random.real(0.0f, 1.0f);
    signal.borderAlpha = BorderAlpha{random.whole(0, 2)};
    // Components below 0 are stored too.
    if (random.chance(40)) set.source.scribble(random);
}

template <class P>
std::unique_ptr<Television<P>> randomTelevision(Random& random) {
    const int width = random.chance(15) ? random.whole(1, 3) : random.whole(1, 48);
    const int height = random.chance(15)   ? random.whole(1, 3)
                       : random.chance(15) ? random.whole(60, 160)
                                           : random.whole(1, 40);
    auto set = std::make_unique<Television<P>>(width, height, random.bits());
    chooseSet(random, *set);
    return set;
}

inline float randomThreshold(Random& random) {
    return random.chance(30) ? 0.0f : random.real(0.0f, 0.9f);
}

// The one shash in 32768 random ones that draws nothing.
inline void drawNoShash(SignalParameters& signal) {
    constexpr std::uint32_t kLast = 32767;
    signal.shashType = ShashType::Random;
    signal.shashPeriod = 1;
    signal.shashFramesOn = 0;
    for (std::uint32_t seed = static_cast<std::uint32_t>(signal.seed);; ++seed) {
        std::uint32_t state = seed;
        if (nextRandom(state) != kLast) continue;
        signal.seed = static_cast<std::int32_t>(seed);
        return;
    }
}

template <class P>
void chooseTones(Random& random, SignalParameters& signal) {
    const auto part = [&] { return random.chance(30) ? 0.0f : random.real(-1.0f, 1.0f); };
    signal.tvType = TvType{random.whole(0, 2)};
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
    signal.numGhosts = random.chance(10) ? random.whole(-3, -1) : random.whole(0, 10);
    signal.ghostThreshold = randomThreshold(random);
    signal.ghostDistance = random.real(-300.0f, 300.0f);
    signal.ghostStrength = random.real(0.0f, 3.0f);
    signal.ghostPhase = random.real(0.0f, 500.0f);
}

inline void chooseSnow(Random& random, SignalParameters& signal) {
    signal.tvType = TvType{random.whole(0, 2)};
    signal.snowThreshold = randomThreshold(random);
    signal.snowMax = random.real(-2.0f, 2.0f);
    signal.snowSoftness = random.real(0.0f, 8.0f);
    signal.snowSparseness = random.chance(20)   ? 0.0f
                            : random.chance(10) ? 1.0f
                                                : random.real(0.0f, 1.0f);
}

inline void chooseShash(Random& random, SignalParameters& signal) {
    signal.shashType = ShashType{random.whole(0, 5)};
    signal.shashPeriod = random.whole(0, 30);
    signal.shashFramesOn = random.whole(0, 500);
    signal.shashThreshold = randomThreshold(random);
    signal.shashAmountMax = random.chance(30) ? random.real(-1.0f, 3.0f) : random.real(0.0f, 1.0f);
    if (random.chance(5)) drawNoShash(signal);
    if (!random.chance(30)) return;
    // The shash alone.
    signal.breakup = signal.shashAmountMax = 1.0f;
    signal.shashThreshold = 0.0f;
}

inline void chooseLines(Random& random, SignalParameters& signal) {
    constexpr float kNearAxes[] = {0.0008726647f, 1.571669f, 3.1424656f, 4.7132616f};
    signal.tvType = TvType{random.whole(0, 2)};
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
    signal.playState = PlayState{random.whole(0, 2)};
    signal.dvdMode = random.chance(10);
    signal.framesAtLowSpeed = random.whole(0, 14);
    signal.playSpeedAtStart = random.real(-8.0f, 8.0f);
}

/// Each fault in some of the cases, and so every way in which stages share pictures.
template <class P>
void chooseFaults(Random& random, SignalParameters& signal) {
    if (random.chance(70)) chooseTones<P>(random, signal);
    if (random.chance(70)) chooseRoll(random, signal);
    if (random.chance(50)) chooseEdges(random, signal);
    if (random.chance(50)) chooseColourLoss(random, signal);
    if (random.chance(40)) chooseGuns(random, signal);
    if (random.chance(50)) chooseGhosts(random, signal);
    if (random.chance(70)) chooseSnow(random, signal);
    if (random.chance(50)) chooseLines(random, signal);
    if (random.chance(50)) chooseTransport(random, signal);
    if (random.chance(40)) chooseShash(random, signal);
    if (random.chance(30)) signal.whiteDot = random.real(0.0f, 0.5f);
}

}  // namespace ruvex::test
