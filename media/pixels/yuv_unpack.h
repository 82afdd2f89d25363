// Conversion of YUV pictures to RGB frames.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <variant>
#include <vector>

#include "media/frame.h"
#include "media/pixels/chroma_interpolator.h"
#include "media/pixels/chroma_resampler.h"
#include "media/pixels/kernels/yuv_kernels.h"
#include "media/pixels/yuv_coding.h"

namespace ruvex::media {

/// Whether YuvUnpacker takes `format`: integer YUV of at most 16 bits, planar or packed, with or
/// without alpha.
bool isYuv(AVPixelFormat format);

/// Converts YUV pictures of one format into frames. Chroma is interpolated to the luma samples, and
/// each component of the result is the nearest to the exact one, with halves rounded up. Filters
/// and working memory serve all pictures.
class YuvUnpacker {
public:
    /// `format` is one that isYuv accepts, of the depth that `coding` has. `kernels` must outlive
    /// the unpacker.
    YuvUnpacker(FrameSize size, AVPixelFormat format, const YuvCoding& coding,
                AVChromaLocation siting, const YuvKernels& kernels = bestYuvKernels());

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
    using AnyInterpolator =
        std::variant<ChromaInterpolator<std::int32_t>, ChromaInterpolator<double>>;

    static AnyInterpolator interpolatorFor(AVPixelFormat format, const YuvCoding& coding,
                                           const ChromaResampler& across,
                                           const std::vector<Part>& whole,
                                           const std::vector<Part>& fields,
                                           const YuvKernels& kernels);
    std::vector<Part> partsOf(const ChromaGrid& grid, bool interlaced) const;
    template <class Sum>
    void unpackPart(const AVFrame& picture, const Part& part, ChromaInterpolator<Sum>& chroma,
                    Frame& frame);
    template <class Sum>
    void decode(const YuvLine<Sum>& line, const ColourScale& scale, int row, Frame& frame) const;

    const AVPixFmtDescriptor& format_;
    FrameSize size_;
    YuvCoding coding_;
    const YuvKernels& kernels_;
    ChromaResampler across_;
    std::vector<Part> whole_;
    std::vector<Part> fields_;
    AnyInterpolator chroma_;
    // Working memory, a line each.
    std::vector<std::uint16_t> luma_;
    std::vector<std::uint16_t> alpha_;
};

}  // namespace ruvex::media
