// The signal at one frame: its level, and what its stages remember.

#pragma once

#include "effect/player.h"
#include "effect/signal_walks.h"

namespace ruvex {

/// When the frame is.
struct FrameMoment {
    double time;        ///< in seconds
    float frameRate;    ///< frames a second
    float frameNow;     ///< the output's frame number
    double sampleRate;  ///< frames a second, as the host gives it
};

struct SignalMoment {
    float breakup;  ///< the level, 0 to 1
    SignalWalks walks;
};

/// Walks back over the time line once.
SignalMoment signalAt(const ParameterReader& reader, const TapePosition& tape,
                      const FrameMoment& moment);

}  // namespace ruvex
