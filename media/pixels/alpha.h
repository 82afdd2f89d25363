// Straight and premultiplied alpha. The effect works on straight colours.

#pragma once

#include "media/frame.h"

namespace ruvex::media {

/// Straight: red, green and blue do not depend on alpha. Premultiplied: they are multiplied by
/// alpha (0 to 1).
enum class AlphaForm { Straight, Premultiplied };

/// The frame at `depth` with red, green and blue divided by alpha; where alpha is 0 they are kept.
/// Components are rounded once, to the nearest, and clamped to the range of their type.
Frame unpremultiplied(const Frame& frame, Depth depth);
/// The same into `straight`, another frame, whose memory is reused where it fits.
void unpremultiply(const Frame& frame, Depth depth, Frame& straight);

/// The frame at `depth` with red, green and blue multiplied by alpha; where alpha is 0 they are
/// kept, so that `unpremultiplied` restores them. Components are rounded once, to the nearest.
Frame premultiplied(const Frame& frame, Depth depth);
/// The same into `product`, another frame, whose memory is reused where it fits.
void premultiply(const Frame& frame, Depth depth, Frame& product);

/// Sets alpha to full; colours are kept.
void makeOpaque(Frame& frame);

}  // namespace ruvex::media
