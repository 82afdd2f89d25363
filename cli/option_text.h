// The values of options, from text. All throw UsageError, naming the option and the text.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "media/frame.h"
#include "media/rational.h"

namespace ruvex::cli {

/// First and last frame, both rendered.
struct FrameRange {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

/// A rectangle in chain rows: y counts upwards from the picture's bottom line.
struct Region {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// Frame numbers end here: from this one on, single precision, in which the effect counts, cannot
/// tell a frame from the next.
inline constexpr std::int64_t kFrameNumberEnd = 16777216;

/// "720x576", each side from 1 up.
media::FrameSize parseSize(const std::string& option, std::string_view text);
/// "A-B" or one number, from 0 up, A not above B, both below kFrameNumberEnd.
FrameRange parseFrames(const std::string& option, std::string_view text);
/// "X,Y,W,H"; X and Y from 0 up, W and H from 1 up.
Region parseRegion(const std::string& option, std::string_view text);
/// "25", "29.97", "30000/1001": above 0.
media::Rational parseFraction(const std::string& option, std::string_view text);
/// A decimal number from 0 to 1.
double parsePart(const std::string& option, std::string_view text);
/// A whole number from `low` to `high`.
int parseWhole(const std::string& option, std::string_view text, int low, int high);

}  // namespace ruvex::cli
