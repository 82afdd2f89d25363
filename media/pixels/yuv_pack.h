// Conversion of RGB frames to YUV pictures.

#pragma once

extern "C" {
#include <libavutil/frame.h>
}

#include <vector>

#include "media/frame.h"
#include "media/pixels/chroma_resampler.h"
#include "media/pixels/yuv_coding.h"

namespace ruvex::media {

/// A kind of YUV pictures.
struct YuvForm {
    AVPixelFormat format;  ///< Planar YUV(A) of 8 bits, or of 9 to 16 in little-endian words.
    int matrix;            ///< One that matrixInUse returns.
    bool full = false;     ///< Full range, not limited range.
    AVChromaLocation siting = AVCHROMA_LOC_UNSPECIFIED;  ///< Chroma siting; for 4:2:0.
    bool interlaced = false;  ///< Each field has chroma lines of its own; for 4:2:0.
};

/// Converts frames into YUV pictures of one form. Each code value is the nearest to the exact one,
/// with halves rounded up. Components of a frame are clamped to black and white. Coefficients are
/// computed once for all pictures.
class YuvPacker {
public:
    YuvPacker(FrameSize size, const YuvForm& form);

    /// Converts a frame of either depth into a picture, both of the constructor's size.
    void pack(const Frame& frame, AVFrame& picture);

private:
    /// Lines with their vertical decimation.
    struct Part {
        PictureLines lines;
        ChromaResampler down;
    };
    void packPlain(const Frame& frame, int y, AVFrame& picture);
    void packChroma(const Frame& frame, const Part& part, AVFrame& picture);
    /// Computes the colour differences of line y, decimated across, into `values`: blue, then red.
    void readDifferences(const Frame& frame, int y, double* values);

    AVPixelFormat format_;
    FrameSize size_;
    YuvCoding coding_;
    LumaShares shares_;
    ChromaResampler across_;
    std::vector<Part> parts_;
    // Working memory, a line each.
    std::vector<double> pixels_;  ///< The components of a chain row, clamped.
    std::vector<double> plain_;   ///< One value for each pixel.
    std::vector<double> chroma_;  ///< Decimated both ways: blue, then red.
};

}  // namespace ruvex::media
