// Which way is up, settled here and nowhere else.
//
// The chain's coordinates run upwards, as a viewer's do: its row 0 is the picture's bottom line,
// and cropping the bottom takes rows from 0 on. Files of video and stills store the top line
// first, so readers and writers of those go through this function. Raw frames are the chain's own
// rows and do not.

#pragma once

namespace ruvex::media {

/// The chain row that shows a file's line, and the other way round. Lines count from the top.
constexpr int chainRowOfLine(int line, int height) {
    return height - 1 - line;
}

}  // namespace ruvex::media
