// The pictures of a font's characters. They were made from DejaVu Sans Bold, whose notice and
// licence are in docs/licences/viewer-font.txt.

#pragma once

#include <cstdint>

namespace ruvex {

/// One character as pixels. Lengths are in pixels, from the point on the base line where the
/// character begins.
struct ViewerGlyph {
    static constexpr int kMaxHeight = 16;

    /// From here to where the next character begins.
    int advance;
    /// The picture's low left corner; `bottom` is negative below the base line.
    int left, bottom;
    /// The picture's size; 0 for a character without pixels.
    int width, height;
    /// From the bottom up. The highest of 16 bits is the leftmost pixel.
    std::uint16_t rows[kMaxHeight];
};

/// The font's first character and how many it has.
inline constexpr std::uint32_t kFirstViewerGlyph = 32;
inline constexpr std::uint32_t kViewerGlyphs = 96;

/// The characters 32 to 127, in that order.
extern const ViewerGlyph viewerGlyphs[kViewerGlyphs];

}  // namespace ruvex
