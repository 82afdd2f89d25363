// The picture of a frame or a field as an image of the effect, read from a host's picture and
// written to one.

#pragma once

#include "adapters/common/host_picture.h"
#include "adapters/common/picture_effect.h"
#include "sdk/images/memory_image.h"

namespace ruvex::adapters {

/// The rows of a frame that are rendered as one picture: all of them, or every second one.
struct FrameRows {
    PixelRect frame;
    int first = 0;  ///< The y of the picture's bottom row.
    int step = 1;   ///< From the y of a row to that of the next one.
    int count = 0;  ///< 0 where a frame of one row has no such line.

    int yOf(int row) const { return first + row * step; }
};

/// The rows of a frame whose size is checked.
FrameRows rowsOf(const PixelRect& frame, RenderedLines lines);

/// The part of a window that is written: rows from `area.y1` on, `step` apart, as far as both the
/// window and the target have them.
struct WrittenRows {
    PixelRect area;
    int step = 1;
};
WrittenRows writtenRows(const PixelRect& window, RenderedLines lines, const PixelRect& bounds);

/// Reads the rows into an image of the frame's width and `rows.count` rows. What the source
/// lacks stays as it is, so all bytes of the image are 0 unless the source has the whole frame. The
/// image's format decides the depth. Answers whether every pixel of the image is then opaque.
bool readPicture(const SourcePicture& source, const FrameRows& rows, CDSMemoryImage& image);

/// Writes the image of the rows into a target, where they lie within `written`; pixels of `written`
/// outside the frame become 0. If `opaque`, alpha becomes white, in the image too. An image of 8
/// bits needs a target of 8 bits.
void writePicture(CDSMemoryImage& image, const FrameRows& rows, const WrittenRows& written,
                  bool opaque, const TargetPicture& target);

/// Sets the pixels to 0.
void clearPicture(const WrittenRows& written, const TargetPicture& target);

}  // namespace ruvex::adapters
