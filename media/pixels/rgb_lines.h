// Exact conversion between RGB or grey pictures of the FFmpeg libraries and frames.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixfmt.h>
}

#include "media/frame.h"

namespace ruvex::media {

/// Whether unpackRgb takes `format`: RGB, grey or a palette, with or without alpha, of at most 16
/// bits a component.
bool isRgbOrGrey(AVPixelFormat format);

/// Bits of the widest component; 8 for a palette.
int bitsPerComponent(AVPixelFormat format);

bool hasAlpha(AVPixelFormat format);

/// Converts the picture into `frame`, which has its size, at the frame's depth. Grey goes to red,
/// green and blue; it is of full range unless the picture is marked as limited. Alpha is white if
/// the picture has none.
void unpackRgb(const AVFrame& picture, Frame& frame);

/// Converts the frame into a picture of its size: an 8-bit frame into RGBA or BGRA, an S2.14 frame
/// into RGBA64LE or RGBA64BE, clamped to black and white.
void packRgb(const Frame& frame, AVFrame& picture);

}  // namespace ruvex::media
