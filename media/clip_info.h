// The properties of a clip that has been opened.

#pragma once

#include <cstdint>
#include <optional>

#include "media/clip_tags.h"
#include "media/frame.h"
#include "media/hdr_metadata.h"
#include "media/rational.h"

namespace ruvex::media {

/// A video's colour description as code points of ITU-T H.273, which containers store. A render
/// gets its clip's, so that players show both alike.
struct ColourTags {
    static constexpr int kUnspecified = 2;  ///< The code point "unspecified".
    int primaries = kUnspecified;
    int transfer = kUnspecified;
    int matrix = kUnspecified;
    bool full = false;  ///< Full range, not limited range. RGB is always full range.
};

/// Chroma subsampling: one pair of chroma samples for 2x2 pixels (C420), for two pixels of a line
/// (C422) or for each pixel (C444). Unspecified for RGB and grey.
enum class Chroma { Unspecified, C420, C422, C444 };

/// Whether frames are progressive, or interlaced with the named field first in time.
enum class FieldOrder { Progressive, TopFirst, BottomFirst };

/// ClipInfo::last of a stream, whose end is not known: more than three days at 60 frames a second.
inline constexpr std::int64_t kEndless = (std::int64_t{1} << 24) - 1;

struct ClipInfo {
    FrameSize size;
    Depth depth = Depth::Bits8;    ///< S2.14 for more than 8 bits a component.
    std::optional<Rational> rate;  ///< Frames a second; empty if the input does not say.
    /// Whether the frame rate of the file varies, so that its pictures are moved, repeated or left
    /// out to give the constant `rate`.
    bool uneven = false;
    std::int64_t pictures = 0;  ///< Pictures that an uneven file stores.
    std::int64_t leftOut = 0;   ///< Those of them that no frame shows.
    std::int64_t first = 0;     ///< Number of the first frame.
    std::int64_t last = 0;      ///< Number of the last frame, inclusive; kEndless for a stream.
    bool lastKnown = true;      ///< False for a stream.
    bool hasAlpha = false;
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
    ColourTags colour;
    HdrMetadata hdr;
    std::int64_t start = 0;  ///< Time stamp of the first frame in the file, in microseconds.
    int bits = 8;            ///< Bits of a component of the input.
    Chroma chroma = Chroma::Unspecified;
    FieldOrder fields = FieldOrder::Progressive;
    ClipTags tags;
};

}  // namespace ruvex::media
