// Straight and premultiplied alpha. The effect works on straight colours.

#pragma once

#include "media/frame.h"

namespace ruvex::media {

/// Straight: red, green and blue do not depend on alpha. Premultiplied: they are multiplied by
/// alpha (0 to 1).
enum class AlphaForm { Straight, Premultiplied };

/// Divides red, green and blue by alpha, rounded to the nearest and clamped to the range of the
/// component's type. Where alpha is 0, colours are kept.
void unpremultiply(Frame& frame);

/// Multiplies red, green and blue by alpha, rounded to the nearest. Where alpha is 0, colours are
/// kept, so that `unpremultiply` restores them.
void premultiply(Frame& frame);

}  // namespace ruvex::media
