// What is known of a clip before its first frame is read.

#pragma once

#include <cstdint>
#include <optional>

#include "media/clip_tags.h"
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
    bool full = false;  ///< Black and white at the ends of the scale; RGB is always so.
};

/// How many colour differences there are to a picture's pixels: one to four pixels (two across, two
/// up), one to two across, one to each. Unspecified where there are no colour differences.
enum class Chroma { Unspecified, C420, C422, C444 };

/// Whether a frame is one picture, or two fields of which the named one was taken first.
enum class FieldOrder { Progressive, TopFirst, BottomFirst };

/// The last number of a clip whose end is not known.
inline constexpr std::int64_t kEndless = (std::int64_t{1} << 24) - 1;

struct ClipInfo {
    FrameSize size;
    Depth depth = Depth::Bits8;    ///< S2.14 for over 8 bits a component.
    std::optional<Rational> rate;  ///< Frames a second; nothing if the files do not say.
    bool uneven = false;           ///< Whether frames were doubled or left out to keep to the rate.
    std::int64_t first = 0;        ///< Number of the first frame.
    std::int64_t last = 0;         ///< Number of the last one, inclusive.
    bool lastKnown = true;  ///< False for a stream, whose end shows when it comes; `last` is then
                            ///< kEndless.
    bool hasAlpha = false;
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
    ColourTags colour;
    std::int64_t start = 0;  ///< Time of the first frame on the file's own clock, in microseconds.
    int bits = 8;            ///< Of a component of the input.
    Chroma chroma = Chroma::Unspecified;
    FieldOrder fields = FieldOrder::Progressive;
    ClipTags tags;
};

}  // namespace ruvex::media
