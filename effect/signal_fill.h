// Computes the television's parameters for one frame.

#pragma once

#include "effect/frame_parameters.h"
#include "effect/frame_scale.h"
#include "effect/player.h"
#include "effect/signal_walks.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// The inputs of signalParameters. The references are not owned.
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

/// The angle of the creeping lines in radians, 0 to 2 pi, from whole degrees. An angle exactly on
/// an axis is moved by a twentieth of a degree, since the lines can't be drawn there.
float lineAngleRadians(double degrees);

}  // namespace ruvex
