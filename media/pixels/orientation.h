// Pictures that are stored lying on a side, as cameras do that are turned: set upright.

#pragma once

#include <cstdint>

#include "media/clip_info.h"

struct AVFrame;
struct AVStream;

namespace ruvex::media {

/// How a stored picture becomes the one that is shown: first across and down change places, then
/// the result is mirrored.
struct Orientation {
    bool transposed = false;
    bool mirrored = false;  ///< Left and right change places.
    bool flipped = false;   ///< Top and bottom change places.

    friend bool operator==(const Orientation&, const Orientation&) = default;

    bool upright() const { return *this == Orientation(); }
};

/// From a display matrix of the FFmpeg libraries, nine numbers. Pictures that stand askew, which no
/// such turn sets right, are taken as they are stored.
Orientation orientationOf(const std::int32_t* displayMatrix);

/// As the picture or its container says.
Orientation orientationOf(const AVFrame& picture);
Orientation orientationOf(const AVStream& stream);

/// The picture that is shown.
Frame setUpright(Frame frame, const Orientation& orientation);

/// The size, pixel aspect and order of fields of what is shown. What lies on its side has no lines
/// of its fields any more.
FrameSize setUpright(FrameSize size, const Orientation& orientation);
Rational setUpright(Rational pixelAspect, const Orientation& orientation);
FieldOrder setUpright(FieldOrder fields, int height, const Orientation& orientation);

}  // namespace ruvex::media
