// Words as a picture.

#pragma once

#include <string>

#include "media/frame.h"

namespace ruvex::media {

/// How a label looks. Colours are 0xRRGGBB.
struct LabelStyle {
    int fontSize = 16;  ///< Pixels, from 1 up.
    unsigned text = 0xE6E6E6;
    unsigned ground = 0x181818;
};

/// One line of text in a sans-serif font, in the middle of an opaque 8-bit picture of `size`; what
/// does not fit is cut off. All labels of one height and style stand on one line. Throws MediaError
/// where the machine has no font.
Frame textLabel(const std::string& text, FrameSize size, const LabelStyle& style);

}  // namespace ruvex::media
