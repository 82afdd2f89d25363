// The signal at one frame: its level, and what its faults have added up to over the time before.

#pragma once

#include <cstdint>

#include "effect/frame_time.h"
#include "effect/player.h"
#include "effect/signal_level.h"

namespace ruvex {

/// What some faults remember. Nothing is kept from frame to frame: it is worked out anew for each
/// frame by walking back over the frames before it.
struct SignalWalks {
    double lineSum = 0.0;            ///< how far the creeping lines have crept, project pixels
    std::int32_t verticalSum = 0;    ///< vertical offset and roll together, project pixels
    std::int32_t shashFramesOn = 0;  ///< for how many frames there has been shash
};

struct SignalState {
    float breakup = 0.0f;  ///< the level, 0 to 1
    SignalWalks walks;
};

/// The signal of a frame, with the tape where it stands at that time.
SignalState signalAt(const ParameterReader& reader, const FrameTime& time,
                     const TapePosition& tape);

/// The walks of a frame whose level is `breakup`, with the tape at `sourcePosition` in frames.
/// Lines and roll go by the tape's frames, shash by the output's.
SignalWalks walkBack(const ParameterReader& reader, const SignalLevel& levels,
                     const FrameTime& time, float sourcePosition, float breakup);

}  // namespace ruvex
