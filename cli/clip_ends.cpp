#include "cli/clip_ends.h"

#include <algorithm>

#include "cli/usage_error.h"

namespace ruvex::cli {

ClipEnds parseEnds(const std::string& option, std::string_view text) {
    if (text == "blank") return ClipEnds::Blank;
    if (text == "hold") return ClipEnds::Hold;
    if (text == "loop") return ClipEnds::Loop;
    throw UsageError(option + ": '" + std::string(text) +
                     "' is no way to go on at the ends of a clip; write blank, hold or loop.");
}

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

}  // namespace ruvex::cli
