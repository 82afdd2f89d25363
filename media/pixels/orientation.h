// Rotation and mirroring of pictures that are not stored upright, as by a camera held sideways.

#pragma once

#include <cstdint>

#include "media/clip_info.h"

struct AVFrame;
struct AVStream;

namespace ruvex::media {

/// How a stored picture is turned to be shown: it is first transposed, then mirrored and flipped.
struct Orientation {
    bool transposed = false;  ///< Lines become columns.
    bool mirrored = false;    ///< Left and right are exchanged.
    bool flipped = false;     ///< Top and bottom are exchanged.

    friend bool operator==(const Orientation&, const Orientation&) = default;

    bool upright() const { return *this == Orientation(); }
};

/// From a display matrix of the FFmpeg libraries, nine numbers. Upright for a rotation that is not
/// a multiple of 90 degrees.
Orientation orientationOf(const std::int32_t* displayMatrix);

/// From the display matrix of a picture or its container; upright if there is none.
Orientation orientationOf(const AVFrame& picture);
Orientation orientationOf(const AVStream& stream);

/// The picture as it is shown.
Frame setUpright(Frame frame, const Orientation& orientation);
/// The same into `shown`, another frame, whose memory is reused where it fits.
void setUpright(const Frame& frame, const Orientation& orientation, Frame& shown);

/// Size, pixel aspect and field order of the picture as it is shown. A transposed picture counts as
/// progressive, since its fields are no longer made of lines. `height` is the stored picture's.
FrameSize setUpright(FrameSize size, const Orientation& orientation);
Rational setUpright(Rational pixelAspect, const Orientation& orientation);
FieldOrder setUpright(FieldOrder fields, int height, const Orientation& orientation);

}  // namespace ruvex::media
