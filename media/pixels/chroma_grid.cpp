#include "media/pixels/chroma_grid.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include "media/av_functions.h"

namespace ruvex::media {
namespace {

/// Each field of a 4:2:0 picture needs an even number of lines.
constexpr int kInterlacedLines = 4;

/// In the middle of the luma samples that share a chroma sample.
constexpr double middleOf(int log2Step) {
    return ((1 << log2Step) - 1) / 2.0;
}

bool is420(const ChromaGrid& grid) {
    return grid.across.log2Step == 1 && grid.down.log2Step == 1;
}

bool isLeft(AVChromaLocation siting) {
    return siting != AVCHROMA_LOC_CENTER && siting != AVCHROMA_LOC_TOP &&
           siting != AVCHROMA_LOC_BOTTOM;
}

double offsetDown(AVChromaLocation siting) {
    switch (siting) {
        case AVCHROMA_LOC_TOPLEFT:
        case AVCHROMA_LOC_TOP:
            return 0;
        case AVCHROMA_LOC_BOTTOMLEFT:
        case AVCHROMA_LOC_BOTTOM:
            return 1;
        default:
            return middleOf(1);
    }
}

/// Chroma lies as in a progressive picture, and the bottom field begins one line of the picture
/// lower. A line of the field is two lines of the picture.
ChromaAxis axisOfField(const ChromaAxis& down, int field) {
    return {down.log2Step, (down.offset + field) / 2};
}

}  // namespace

ChromaGrid chromaGrid(AVPixelFormat format, AVChromaLocation siting) {
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    const int across = description.log2_chroma_w;
    const int down = description.log2_chroma_h;
    ChromaGrid grid{{across, middleOf(across)}, {down, middleOf(down)}};
    if (is420(grid)) {
        grid.across.offset = isLeft(siting) ? 0 : middleOf(1);
        grid.down.offset = offsetDown(siting);
    }
    return grid;
}

std::vector<PictureLines> pictureLines(const ChromaGrid& grid, int height, bool interlaced) {
    if (!interlaced || !is420(grid) || height % kInterlacedLines != 0) {
        return {{0, 1, height, grid.down}};
    }
    return {{0, 2, height / 2, axisOfField(grid.down, 0)},
            {1, 2, height / 2, axisOfField(grid.down, 1)}};
}

}  // namespace ruvex::media
