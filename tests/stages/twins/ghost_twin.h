// One pixel with its ghosts.

#pragma once

#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "stages/signal_parameters.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

template <class P>
P ghostPixelTwin(TwinPicture<P>& picture, const SignalParameters& s, int x, int y) {
    float strength = (s.breakup - s.ghostThreshold) / (1.0f - s.ghostThreshold);
    if (strength < 0.0f) strength = 0.0f;
    if (strength > 1.0f) strength = 1.0f;
    const P here = picture.wrapped(x, y);
    float sum[4];
    for (int k = 0; k < 4; ++k) sum[k] = here.c[k];
    for (int ghost = 0; ghost < s.numGhosts; ++ghost) {
        // Places are drawn for all ghosts before the first weight.
        auto seed = static_cast<std::uint32_t>(s.seed);
        for (int i = 0; i < ghost; ++i) nextRandom(seed);
        const int offset =
            truncateToInt(noiseTable().fractalNoise(uniform(seed) * 100.0f + s.ghostPhase, 4) *
                          s.ghostDistance * strength);
        for (int i = ghost + 1; i < s.numGhosts + ghost; ++i) nextRandom(seed);
        const float weight = (uniform(seed) * 2.0f - 1.0f) * s.ghostStrength;
        const P there = picture.wrapped(std::int64_t{x} + offset, y);
        for (int k = 0; k < 4; ++k) {
            sum[k] += (static_cast<float>(here.c[k]) - static_cast<float>(there.c[k])) * weight;
        }
    }
    P result;
    for (int k = 0; k < 4; ++k) result.c[k] = heldTwin<P>(sum[k]);
    return result;
}

/// An area of the signal, into `to`: with ghosts, or as it came.
template <class P>
void ghostsTwin(TwinPicture<P>& signal, const SignalParameters& s, const TwinArea& area,
                TwinPicture<P>& to) {
    const bool haunted = s.breakup > s.ghostThreshold && s.numGhosts != 0;
    area.forEach([&](int x, int y) {
        to.at(x, y) = haunted ? ghostPixelTwin(signal, s, x, y) : signal.wrapped(x, y);
    });
}

}  // namespace ruvex::test
