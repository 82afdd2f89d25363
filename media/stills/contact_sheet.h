// A contact sheet: several pictures in one, each with a label below it.

#pragma once

#include <span>
#include <string>

#include "media/frame.h"

namespace ruvex::media {

struct LabelledPicture {
    std::string label;
    Frame picture;
};

/// Positions and sizes in a sheet, in pixels from its top left corner.
struct SheetLayout {
    /// For `count` pictures of one size, at least one, in rows of `columns`.
    SheetLayout(FrameSize picture, int count, int columns);

    int columns;
    int gap;         ///< Around and between the cells.
    FrameSize cell;  ///< Holds a picture, centred across, and its label below it.
    int labelHeight;
    FrameSize sheet;

    /// The left edge of a picture or label of the size `picture` in cell `index`, which counts from
    /// 0, row by row.
    int left(int index, FrameSize picture) const;
    /// The top edge of cell `index`.
    int top(int index) const;
};

/// An opaque 8-bit sheet of `pictures`, at least one, all 8-bit and of one size, row by row from
/// the top left. Throws MediaError as textLabel does, and if the sheet would be too large (see
/// checkFrameSize).
Frame contactSheet(std::span<const LabelledPicture> pictures, int columns);

}  // namespace ruvex::media
