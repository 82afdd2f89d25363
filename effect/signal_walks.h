// The signal at one frame: its level, and the sums of some faults over the frames before it.

#pragma once

#include <cstdint>

#include "effect/frame_time.h"
#include "effect/player.h"
#include "effect/signal_level.h"

namespace ruvex {

/// Sums of faults over earlier frames. No state is kept from frame to frame: each frame computes
/// them again in a walk back over the frames before it.
struct SignalWalks {
    double lineSum = 0.0;            ///< distance the creeping lines have moved, project pixels
    std::int32_t verticalSum = 0;    ///< vertical offset plus vertical roll, project pixels
    std::int32_t shashFramesOn = 0;  ///< number of frames with shash up to this one
};

struct SignalState {
    float breakup = 0.0f;  ///< the level, 0 to 1
    SignalWalks walks;
};

/// The signal of a frame, for the tape's position at that time.
SignalState signalAt(const ParameterReader& reader, const FrameTime& time,
                     const TapePosition& tape);

/// A threshold of the frame at `seconds`, as a fraction.
float thresholdAt(const ParameterReader& reader, ParameterId id, double seconds);

/// The vertical offset of the frame at `seconds` with level `breakup`, in project pixels.
std::int32_t verticalOffset(const ParameterReader& reader, double seconds, float breakup);

/// The walks of a frame with level `breakup` and the tape at `sourcePosition` in frames. Lines and
/// roll are summed over the tape's frames, shash over the output's.
SignalWalks walkBack(const ParameterReader& reader, const SignalLevel& levels,
                     const FrameTime& time, float sourcePosition, float breakup);

}  // namespace ruvex
