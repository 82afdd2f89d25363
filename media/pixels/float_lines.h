// Conversion between pictures of floating-point RGB (white is 1.0) and frames.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixfmt.h>
}

#include "media/pixels/alpha.h"

namespace ruvex::media {

/// Whether unpackFloat takes `format`: planar RGB, RGBA or grey of little-endian floats.
bool isFloat(AVPixelFormat format);

/// Converts the picture into an S2.14 frame of its size: 1.0 becomes 16384, rounded to the nearest.
/// Values are clamped to S2.14's range, -2 to 2 - 1/16384; NaN becomes 0. Premultiplied colours are
/// divided by their alpha before rounding. Alpha is white if the picture has none.
void unpackFloat(const AVFrame& picture, AlphaForm alpha, Frame& frame);

/// Converts a frame of either depth into a GBRAPF32LE picture of its size. Components are computed
/// as value / white and multiplied by alpha, and only then rounded to floats. unpackFloat restores
/// an S2.14 frame in both alpha forms, and an 8-bit one as convertDepth converts it to S2.14.
void packFloat(const Frame& frame, AlphaForm alpha, AVFrame& picture);

/// Replaces each component of a GBRAPF32LE picture by the nearest half float; of two equally near
/// by the one whose last bit is 0. Components are below 65504, the largest half float.
void roundToHalf(AVFrame& picture);

}  // namespace ruvex::media
