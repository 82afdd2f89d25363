// The memory of the signal's stages, rebuilt for each frame by walking back through time.

#pragma once

#include <cstdint>

#include "effect/frame_scale.h"
#include "effect/signal_level.h"

namespace ruvex {

/// Where the walks start.
struct WalkStart {
    double time;           ///< of the frame, in seconds
    float frameRate;       ///< frames per second
    float frameNow;        ///< the output's frame number
    float sourcePosition;  ///< the tape's
    float breakup;         ///< the level of the frame
};

struct SignalWalks {
    double lineSum = 0.0;            ///< how far the creeping lines have crept, project pixels
    std::int32_t verticalSum = 0;    ///< how far the picture hangs and has rolled, project pixels
    std::int32_t shashFramesOn = 0;  ///< for how many frames there has been shash
};

SignalWalks walkBack(const ParameterReader& reader, const SignalLevel& level,
                     const WalkStart& start);

}  // namespace ruvex
