// What is known of a clip before its first frame is read.

#pragma once

#include <cstdint>
#include <optional>

#include "media/frame.h"
#include "media/rational.h"

namespace ruvex::media {

/// How a video's colours are coded, in the numbers that containers store (ITU-T H.273); 2 is
/// "not said". Carried from a clip to its render, so that a player shows both alike.
struct ColourTags {
    static constexpr int kUnspecified = 2;
    int primaries = kUnspecified;
    int transfer = kUnspecified;
    int matrix = kUnspecified;
};

struct ClipInfo {
    FrameSize size;
    Depth depth = Depth::Bits8;    ///< S2.14 for over 8 bits a component.
    std::optional<Rational> rate;  ///< Frames a second; nothing if the files do not say.
    std::int64_t first = 0;        ///< Number of the first frame.
    std::int64_t last = 0;         ///< Number of the last one, inclusive.
    bool hasAlpha = false;
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
    ColourTags colour;
};

}  // namespace ruvex::media
