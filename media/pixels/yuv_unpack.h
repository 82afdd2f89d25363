// Conversion of YUV pictures to RGB frames.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <array>
#include <vector>

#include "media/frame.h"
#include "media/pixels/chroma_resampler.h"
#include "media/pixels/yuv_coding.h"

namespace ruvex::media {

/// Whether YuvUnpacker takes `format`: integer YUV of at most 16 bits, planar or packed, with or
/// without alpha.
bool isYuv(AVPixelFormat format);

/// Converts YUV pictures of one format into frames. Chroma is interpolated to the luma samples, and
/// each component of the result is the nearest to the exact one. Coefficients are computed once for
/// all pictures.
class YuvUnpacker {
public:
    /// `format` is one that isYuv accepts, of the depth that `coding` has.
    YuvUnpacker(FrameSize size, AVPixelFormat format, const YuvCoding& coding,
                AVChromaLocation siting);

    /// Converts a picture into a frame of either depth, both of the constructor's size. Components
    /// are clamped to the range of the frame's type: an S2.14 frame keeps values above white and
    /// below black. Alpha is white if the picture has none. The fields of an interlaced picture are
    /// converted as pictureLines says.
    void unpack(const AVFrame& picture, bool interlaced, Frame& frame);

private:
    /// Lines with their vertical interpolation.
    struct Part {
        PictureLines lines;
        ChromaResampler down;
    };
    template <typename T>
    void unpackAs(const AVFrame& picture, bool interlaced, Frame& frame);
    template <typename T>
    void unpackPart(const AVFrame& picture, const Part& part, Frame& frame);
    /// Reads a chroma line into `values`: blue, then red.
    void readChroma(const AVFrame& picture, int line, double* values);
    std::vector<Part> partsOf(const ChromaGrid& grid, bool interlaced) const;

    const AVPixFmtDescriptor& format_;
    FrameSize size_;
    YuvCoding coding_;
    ChromaResampler across_;
    std::vector<Part> whole_;
    std::vector<Part> fields_;
    int chromaWidth_;
    // Working memory, a line each.
    std::vector<std::uint16_t> values_;
    std::vector<std::uint16_t> alpha_;
    std::vector<double> chroma_;  ///< Interpolated between lines: blue, then red.
    std::vector<double> blue_;
    std::vector<double> red_;
};

}  // namespace ruvex::media
