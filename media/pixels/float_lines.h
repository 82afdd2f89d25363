// Pictures of floating-point components, white 1, to S2.14 frames and back.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixfmt.h>
}

#include "media/pixels/alpha.h"

namespace ruvex::media {

/// Whether `format` is one of those that unpackFloat takes: planes of RGB, RGBA or grey in floats.
bool isFloat(AVPixelFormat format);

/// Copies the picture into an S2.14 frame of its size, turned the right way up: 1 becomes 16384,
/// rounded to the nearest. Below black and above white everything from -2 to just under 2 is kept,
/// what lies beyond is held there, and what is no number becomes 0. Premultiplied colours are
/// divided by their alpha before they are rounded. Alpha is white where there is none.
void unpackFloat(const AVFrame& picture, AlphaForm alpha, Frame& frame);

/// Copies an S2.14 frame into a GBRAPF32LE picture of its size. Straight, each component is exactly
/// its value / 16384; premultiplied, unpackFloat gives back the same frame.
void packFloat(const Frame& frame, AlphaForm alpha, AVFrame& picture);

}  // namespace ruvex::media
