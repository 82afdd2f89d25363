// Straight and premultiplied alpha. The effect works on straight colours.

#pragma once

#include "media/frame.h"

namespace ruvex::media {

/// Straight: red, green and blue do not depend on alpha. Premultiplied: they are multiplied by
/// alpha (0 to 1).
enum class AlphaForm { Straight, Premultiplied };

/// Returns the frame at `depth` with red, green and blue divided by alpha, rounded to the nearest
/// and clamped to the range of the component's type. Where alpha is 0, colours are kept. The
/// division is done at the greater of the two depths, so that nothing is rounded to 8 bits before
/// it must be.
Frame unpremultiplied(Frame frame, Depth depth);

/// Returns the frame at `depth` with red, green and blue multiplied by alpha, rounded to the
/// nearest. Where alpha is 0, colours are kept, so that `unpremultiplied` restores them. The
/// multiplication is done at the greater of the two depths.
Frame premultiplied(Frame frame, Depth depth);

}  // namespace ruvex::media
