// What the host answers for frames before the first and after the last of a clip.

#pragma once

#include <cstdint>
#include <optional>

#include "cli/option_text.h"

namespace ruvex::cli {

enum class ClipEnds {
    Blank,  ///< There is nothing: the request is refused, and the picture stays blank.
    Hold,   ///< The first or the last frame, whichever is nearer.
    Loop,   ///< The clip starts over; before its first frame comes its last.
};

/// "blank", "hold" or "loop". Throws UsageError.
ClipEnds parseEnds(const std::string& option, std::string_view text);

/// The frame of the clip that stands for `number`; nothing where there is none. Numbers and clip
/// lie within kFrameNumberEnd of 0.
std::optional<std::int64_t> frameInClip(std::int64_t number, FrameRange clip, ClipEnds ends);

}  // namespace ruvex::cli
