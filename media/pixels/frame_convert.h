// Frames converted to another depth, and sizes fitted into others.

#pragma once

#include "media/frame.h"

namespace ruvex::media {

/// The frame at `depth`, each component rounded to the nearest (see sdk/images/sample_convert.h). A
/// frame of this depth is returned unchanged.
Frame convertDepth(Frame frame, Depth depth);
/// The same into `converted`, another frame, whose memory is reused where it fits.
void convertDepth(const Frame& frame, Depth depth, Frame& converted);

/// The largest size of the same proportions whose longer side has at most `most` pixels; the
/// shorter side is rounded, at least 1. A size within the limit is returned unchanged.
FrameSize fitInto(FrameSize size, int most);

}  // namespace ruvex::media
