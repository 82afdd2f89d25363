// The simulated player: the source frame at an output time, and the state of the tape.

#pragma once

#include <cstdint>

#include "effect/frame_time.h"
#include "effect/walk_check.h"
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

/// The same for a play time that PlayedTime gave for `time`.
TapePosition tapePositionAt(const ParameterReader& reader, const FrameTime& time, double playTime);

/// The integral of Play Speed from 0 to several times in rising order, in seconds of the clip. Each
/// call of upTo continues where the previous one stopped. Ends early, with a result that has no
/// meaning, when the curve's frame is stopped.
class PlayedTime {
public:
    /// `hostRate` in frames per second.
    PlayedTime(const ParameterCurve& speed, double hostRate);

    /// The integral up to `end` in seconds, which must not be before that of the previous call. 0
    /// for an end before the start.
    double upTo(double end);

private:
    ParameterCurve speed_;
    double step_;
    double sum_ = 0.0;     // up to moment_, in percent times seconds
    float moment_ = 0.0f;  // reached so far
    double next_;
    bool normal_ = true;  // whether the speed was normal up to moment_
    WalkCheck check_;
};

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
