// The frames of a video that were decoded last.

#pragma once

#include <cstdint>
#include <list>

#include "media/frame.h"

namespace ruvex::media {

/// Keeps a handful of frames, the most recently used ones, within a bound on memory.
class FrameCache {
public:
    /// The frame, or null. The pointer lives until the next call of `keep`.
    const Frame* find(std::int64_t number);
    void keep(std::int64_t number, Frame frame);

private:
    struct Entry {
        std::int64_t number;
        Frame frame;
    };
    std::list<Entry> entries_;  ///< The most recent first.
};

}  // namespace ruvex::media
