// Conversion of YUV pictures of more than 8 bits to S2.14 RGB.

#pragma once

extern "C" {
#include <libavutil/frame.h>
}

#include "media/frame.h"

namespace ruvex::media {

/// The matrix, range and depth of a YUV picture.
struct YuvCoding {
    int matrix = 0;     ///< An AVColorSpace that matrixInUse returns.
    bool full = false;  ///< Full range, not limited range.
    int bits = 16;      ///< Bits of a source component, which are the top bits of the 16.
    bool alpha = false;
};

/// Converts a YUV(A)444P16 picture into an S2.14 frame of its size. Values above white and below
/// black are kept, as far as S2.14 holds them. Alpha is white if the picture has none.
void unpackDeepYuv(const AVFrame& picture, const YuvCoding& coding, Frame& frame);

}  // namespace ruvex::media
