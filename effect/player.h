// The simulated player: which source frame is shown at an output time, and how it is being played.

#pragma once

#include <cstdint>

#include "effect/frame_time.h"
#include "host/base/parameter_reader.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Where the tape is.
struct TapePosition {
    double playTime = 0.0;        ///< seconds of the clip played; below 0 after winding back
    float sourcePosition = 0.0f;  ///< the same in frames
    std::int32_t sourceFrame = 0;
    float shownFrame = 0.0f;  ///< the frame that is looked at, with frames repeated
};

/// A Play Speed of 100 all along gives the output's own frame.
TapePosition tapePosition(const ParameterReader& reader, const FrameTime& time);

/// The whole frame that a position stands for. A position just below a frame is that frame, which
/// keeps the rounding of integrals from showing the one before.
std::int32_t frameAtPosition(float position);

/// The frame that stands for `frame` when each is shown `repeat` times; frames before 0 round
/// towards 0. Anything below 1 counts as 1.
std::int32_t repeatedFrame(std::int32_t frame, std::int32_t repeat);

/// How the tape runs at a moment.
struct PlayStatus {
    PlayState state = PlayState::Normal;
    std::int32_t framesAtLowSpeed = 0;  ///< for how many frames, ending now, it has been slow
    float speedAtStart = 1.0f;          ///< the speed before that; 1 is normal
};

PlayStatus playStatusAt(const ParameterReader& reader, const FrameTime& time);

}  // namespace ruvex
