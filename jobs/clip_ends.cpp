#include "jobs/clip_ends.h"

#include <algorithm>

namespace ruvex::jobs {

std::optional<std::int64_t> frameInClip(std::int64_t number, FrameRange clip, ClipEnds ends) {
    if (number >= clip.first && number <= clip.last) return number;
    switch (ends) {
        case ClipEnds::Hold:
            return std::clamp(number, clip.first, clip.last);
        case ClipEnds::Loop: {
            const std::int64_t length = clip.last - clip.first + 1;
            const std::int64_t past = (number - clip.first) % length;
            return clip.first + (past < 0 ? past + length : past);
        }
        default:
            return std::nullopt;
    }
}

}  // namespace ruvex::jobs
