// A line of text as a picture.

#pragma once

#include <string>

#include "media/frame.h"

namespace ruvex::media {

/// The appearance of a label. Colours are 0xRRGGBB.
struct LabelStyle {
    int fontSize = 16;  ///< Pixels, at least 1.
    unsigned text = 0xE6E6E6;
    unsigned ground = 0x181818;  ///< The background.
};

/// One line of text in a sans-serif font, centred in an opaque 8-bit picture of `size`; text that
/// does not fit is cut off. All labels of one height and style have the same baseline. Throws
/// MediaError if the machine has no font.
Frame textLabel(const std::string& text, FrameSize size, const LabelStyle& style);

}  // namespace ruvex::media
