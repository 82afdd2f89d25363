// The frames before the first and after the last of a clip.

#pragma once

#include <cstdint>
#include <optional>

#include "jobs/frame_range.h"

namespace ruvex::jobs {

enum class ClipEnds {
    Blank,  ///< There is no frame: the request is refused, and the picture stays blank.
    Hold,   ///< The nearest frame: the first or the last.
    Loop,   ///< The clip is repeated endlessly, in both directions.
};

/// The frame of `clip` to show for `number`; empty where there is none. All numbers lie within
/// kFrameNumberEnd of 0.
std::optional<std::int64_t> frameInClip(std::int64_t number, FrameRange clip, ClipEnds ends);

}  // namespace ruvex::jobs
