// Pictures made smaller.

#pragma once

#include "media/frame.h"

namespace ruvex::media {

/// The size with the longer side held to `most`, sides in proportion and at least one pixel. A size
/// that fits stays as it is.
FrameSize fitInto(FrameSize size, int most);

/// An 8-bit frame at a smaller size, each pixel the mean of what it covers; at its own size the
/// frame itself.
Frame scaleDown(Frame frame, FrameSize size);

}  // namespace ruvex::media
