// Filling in the television's parameters for one frame.

#pragma once

#include "effect/frame_parameters.h"
#include "effect/frame_scale.h"
#include "effect/player.h"
#include "effect/signal_walks.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// All that the television's parameters are made from. References are borrowed.
struct FrameState {
    const ParameterReader& reader;
    const FrameParameters& parameters;
    const FrameScale& scale;
    const FrameTime& time;
    TapePosition tape;
    PlayStatus play;
    SignalState signal;

    /// Resolution as a fraction.
    float res() const { return parameters.fraction(ParameterId::Resolution); }
};

/// `white` is the stored value of white of the frame's pixel type.
SignalParameters signalParameters(const FrameState& frame, float white);

/// An angle in degrees as the creeping lines take it: whole degrees, in radians from 0 to 2 pi,
/// moved a twentieth of a degree off an exact axis, on which they could not be drawn.
float lineAngleRadians(double degrees);

}  // namespace ruvex
