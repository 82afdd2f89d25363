// A frame for which there was not enough memory.

#pragma once

#include <cstdint>
#include <string>

#include "runtime/error.h"

namespace ruvex::jobs {

/// "frame 12 was not finished: out of memory. Use fewer workers, ..."; ends without a full stop.
inline std::string outOfMemorySentence(std::int64_t frame) {
    return "frame " + std::to_string(frame) +
           " was not finished: out of memory. Use fewer workers, render fewer frames at once, or "
           "make the picture smaller";
}

/// Thrown instead of giving a frame that the effect or its host could not finish.
class FrameOutOfMemory : public runtime::OutOfMemory {
public:
    explicit FrameOutOfMemory(std::int64_t frame) : OutOfMemory(outOfMemorySentence(frame)) {}
};

}  // namespace ruvex::jobs
