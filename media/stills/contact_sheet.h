// Several pictures in one, each with a label below it.

#pragma once

#include <span>
#include <string>

#include "media/frame.h"

namespace ruvex::media {

struct LabelledPicture {
    std::string label;
    Frame picture;
};

/// Where things lie in a sheet; pixels, rows from the top.
struct SheetLayout {
    /// `count` pictures of one size, at least one, in rows of `columns`.
    SheetLayout(FrameSize picture, int count, int columns);

    int columns;
    int gap;         ///< Around and between the cells.
    FrameSize cell;  ///< A picture in the middle, its label below it.
    int labelHeight;
    FrameSize sheet;

    /// The left and the top end of picture `index`, which has the size `picture`.
    int left(int index, FrameSize picture) const;
    int top(int index) const;
};

/// The pictures, all 8-bit and of one size, from left to right and from the top down; opaque.
/// Throws MediaError as textLabel does, and for a sheet that would be too large.
Frame contactSheet(std::span<const LabelledPicture> pictures, int columns);

}  // namespace ruvex::media
