// RGB and grey pictures of the FFmpeg libraries to frames and back, exactly, without a scaler.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixfmt.h>
}

#include "media/frame.h"

namespace ruvex::media {

/// Whether `format` is RGB, grey or a palette of 1 to 16 bits a component, with or without alpha.
bool isRgbOrGrey(AVPixelFormat format);

/// Bits of the widest component: 8 for a palette.
int bitsPerComponent(AVPixelFormat format);

bool hasAlpha(AVPixelFormat format);

/// Copies the picture into the frame, which has its size; turned the right way up. Grey goes to all
/// three colours; alpha is white where there is none.
void unpackRgb(const AVFrame& picture, Frame& frame);

/// Copies the frame into a picture of its size in RGBA, BGRA, RGBA64LE or RGBA64BE. An 8-bit frame
/// needs an 8-bit picture, an S2.14 frame a 16-bit one, where it is held to black and white.
void packRgb(const Frame& frame, AVFrame& picture);

}  // namespace ruvex::media
