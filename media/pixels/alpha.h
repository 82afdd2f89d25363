// How colour is stored beside alpha. The chain works on straight colour.

#pragma once

#include "media/frame.h"

namespace ruvex::media {

/// Straight: red, green and blue say the colour, whatever alpha is. Premultiplied: they are
/// multiplied by alpha, as light that is added to what lies behind.
enum class AlphaForm { Straight, Premultiplied };

/// Divides the colours by alpha, rounded to the nearest and held to what the depth has room for.
/// Where alpha is 0 there is nothing to divide by, and the colour stays: it is light of its own.
void unpremultiply(Frame& frame);

/// Multiplies the colours by alpha, rounded to the nearest; where alpha is 0, the colour stays, so
/// that it survives the way there and back.
void premultiply(Frame& frame);

}  // namespace ruvex::media
