// Luma and colour differences of more than 8 bits into S2.14.

#pragma once

extern "C" {
#include <libavutil/frame.h>
}

#include "media/frame.h"

namespace ruvex::media {

/// How the numbers of a YUV picture are meant.
struct YuvCoding {
    int matrix = 0;     ///< One that matrixInUse gives.
    bool full = false;  ///< Black and white at the ends of the scale, not at 16 and 235 of 256.
    int bits = 16;      ///< Of a component of the source; they stand at the top of the 16.
    bool alpha = false;
};

/// Copies a YUV(A)444P16 picture into an S2.14 frame of its size, turned the right way up. What
/// lies above white and below black is kept, as S2.14 has room for it; alpha is white where there
/// is none.
void unpackDeepYuv(const AVFrame& picture, const YuvCoding& coding, Frame& frame);

}  // namespace ruvex::media
