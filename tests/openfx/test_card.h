// A test picture made of whole numbers, so that every system makes the same bytes.

#pragma once

#include "tests/openfx/host/clip.h"

namespace ruvex::ofxhost::test {

/// Colour bars over a ramp, a grid and a square that moves with time; opaque. Square pixels from
/// (0, 0); at a render scale the picture is made at that size.
ClipSetup testCard(int width, int height, const PixelFormat& format);

/// A sample of 16 bits in a depth: the high byte, itself, or its part of 65535.
void storeSample(const std::string& depth, unsigned sample, std::byte* to);

}  // namespace ruvex::ofxhost::test
