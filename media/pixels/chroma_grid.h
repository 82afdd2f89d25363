// Where the chroma samples of a picture lie, in progressive and in interlaced pictures.

#pragma once

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <vector>

namespace ruvex::media {

/// Chroma samples along one side of a picture. Sample i lies at i * 2^log2Step + offset.
struct ChromaAxis {
    int log2Step = 0;   ///< 0 for a chroma sample at each luma sample.
    double offset = 0;  ///< In luma samples from the centre of the first one.

    /// The number of chroma samples beside `luma` luma samples.
    int count(int luma) const { return (luma + (1 << log2Step) - 1) >> log2Step; }
};

struct ChromaGrid {
    ChromaAxis across;
    ChromaAxis down;
};

/// The grid of a format. The siting applies to 4:2:0 and is by default on the left, as in MPEG-2,
/// H.264 and H.265. Other subsampled formats have their chroma in the middle of its luma samples.
ChromaGrid chromaGrid(AVPixelFormat format, AVChromaLocation siting);

/// Lines of a picture that have chroma lines of their own: all lines, or those of one field. Line i
/// is line first + i * step of its plane, in luma and in chroma planes.
struct PictureLines {
    int first;
    int step;
    int count;        ///< Luma lines.
    ChromaAxis down;  ///< Of the chroma lines, in these lines.
};

/// The whole picture, or for an interlaced 4:2:0 picture its top and its bottom field. A picture
/// whose height is not a multiple of 4 cannot be divided like that.
std::vector<PictureLines> pictureLines(const ChromaGrid& grid, int height, bool interlaced);

}  // namespace ruvex::media
