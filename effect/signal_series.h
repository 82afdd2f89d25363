// The signal at many frames at once.

#pragma once

#include <vector>

#include "effect/frame_time.h"
#include "effect/player.h"
#include "effect/signal_walks.h"

namespace ruvex {

/// The signal of each frame, bit for bit that of signalAt(reader, times[i], tapes[i]). All times
/// have the same rate. At a constant speed of the tape, each frame adds one level to those that the
/// frames before it needed, where signalAt would compute all of them again. Without meaning if the
/// reader's frame is stopped.
std::vector<SignalState> signalsAt(const ParameterReader& reader,
                                   const std::vector<FrameTime>& times,
                                   const std::vector<TapePosition>& tapes);

}  // namespace ruvex
