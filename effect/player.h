// The simulated player: the source frame at an output time, and the state of the tape.

#pragma once

#include <cstdint>

#include "effect/frame_time.h"
#include "host/base/parameter_reader.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// The position of the tape.
struct TapePosition {
    double playTime = 0.0;        ///< seconds of the clip; negative after rewinding past the start
    float sourcePosition = 0.0f;  ///< the same in frames
    std::int32_t sourceFrame = 0;
    float shownFrame = 0.0f;  ///< the shown frame, after frame repetition
};

/// The tape position at a time. A constant Play Speed of 100 gives the output's own frame.
TapePosition tapePosition(const ParameterReader& reader, const FrameTime& time);

/// The frame number of a position, rounded down. A position just below a whole frame counts as that
/// frame, because integrals have rounding errors.
std::int32_t frameAtPosition(float position);

/// The shown frame when every frame is shown `repeat` times: `frame` rounded towards 0 to a
/// multiple of `repeat`. A `repeat` below 1 counts as 1.
std::int32_t repeatedFrame(std::int32_t frame, std::int32_t repeat);

/// The state of the tape at a time.
struct PlayStatus {
    PlayState state = PlayState::Normal;
    std::int32_t framesAtLowSpeed = 0;  ///< number of frames since slow play began
    float speedAtStart = 1.0f;          ///< the speed before slow play began; 1 is normal
};

PlayStatus playStatusAt(const ParameterReader& reader, const FrameTime& time);

}  // namespace ruvex
