// What the frames of an effect leave for the next one.

#pragma once

#include "imaging/kept_buffer.h"
#include "stages/tone_cache.h"

namespace ruvex {

/// Tables and memory that later frames can use again. No picture depends on them: with an empty one
/// a frame is the same, but takes longer. Not for two frames at once.
template <class P>
struct FrameMemory {
    ToneCache<P> tones;
    KeptBuffer paddedSource;
};

}  // namespace ruvex
