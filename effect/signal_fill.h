// Filling in what the television is told about a frame.

#pragma once

#include "effect/frame_parameters.h"
#include "effect/frame_scale.h"
#include "effect/player.h"
#include "effect/signal_walks.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// All that is known of a frame once its source, its level and its walks are.
struct FrameState {
    const ParameterReader& reader;
    const FrameParameters& parameters;
    const FrameScale& scale;
    TapePosition tape;
    PlayState play;
    SignalWalks walks;
    float breakup = 0.0f;
    float res = 1.0f;       ///< Resolution as a fraction
    float whiteDot = 0.0f;  ///< White Dot as a fraction
    double sampleRate = 0.0;
};

/// `white` is the stored value of white of the frame's pixel type.
SignalParameters signalParameters(const FrameState& frame, float white);

/// An angle in degrees as the creeping lines take it: whole degrees, in radians from 0 to 2 pi,
/// moved a twentieth of a degree off an exact axis, on which they could not be drawn.
float lineAngleRadians(double degrees);

}  // namespace ruvex
