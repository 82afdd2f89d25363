// Frames and parts of frames, by number.

#pragma once

#include <cstdint>
#include <string>

namespace ruvex::jobs {

/// First and last frame, both inclusive.
struct FrameRange {
    std::int64_t first = 0;
    std::int64_t last = 0;

    std::int64_t count() const { return last - first + 1; }
    friend bool operator==(const FrameRange&, const FrameRange&) = default;
};

/// A rectangle in pixels. y counts upwards from the picture's bottom line.
struct Region {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Region&, const Region&) = default;
};

/// Frame numbers stay below this: from here on, single precision, in which the effect counts
/// frames, cannot tell a frame from the next.
inline constexpr std::int64_t kFrameNumberEnd = 16777216;

/// "0-99".
inline std::string toText(const FrameRange& range) {
    return std::to_string(range.first) + "-" + std::to_string(range.last);
}

}  // namespace ruvex::jobs
