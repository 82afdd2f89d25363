// Conversion of RGB frames to YUV pictures.

#pragma once

extern "C" {
#include <libavutil/frame.h>
}

#include <optional>
#include <variant>
#include <vector>

#include "media/frame.h"
#include "media/pixels/chroma_decimator.h"
#include "media/pixels/chroma_resampler.h"
#include "media/pixels/code_scale.h"
#include "media/pixels/edge_line.h"
#include "media/pixels/kernels/yuv_kernels.h"
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
/// with halves rounded up. Components of a frame are clamped to black and white. Filters and
/// working memory serve all pictures.
class YuvPacker {
public:
    /// `kernels` must outlive the packer.
    YuvPacker(FrameSize size, const YuvForm& form, const YuvKernels& kernels = bestYuvKernels());

    /// Converts a frame of either depth into a picture, both of the constructor's size.
    void pack(const Frame& frame, AVFrame& picture);

private:
    using AnyDecimator = std::variant<ChromaDecimator<std::int32_t>, ChromaDecimator<double>>;

    /// Lines with their decimation.
    struct Part {
        PictureLines lines;
        AnyDecimator chroma;
        SumCodes blue, red;
        int next = 0;  ///< The next chroma line.
    };

    /// Prepares for frames of a depth.
    void prepare(Depth depth);
    Part partOf(const PictureLines& lines, int white) const;
    template <class Component, class Word>
    void packAs(const Frame& frame, const PixelKernels<Component>& kernels,
                const EncodeKernels<Component, Word>& encode, AVFrame& picture);
    PairLines pairLines();
    void extendPairs();
    template <class Word>
    void packChroma(Part& part, int line, AVFrame& picture);

    FrameSize size_;
    YuvForm form_;
    YuvCoding coding_;
    ChromaGrid grid_;
    const YuvKernels& kernels_;
    ChromaResampler across_;
    std::optional<Depth> depth_;           ///< Of the frames that it is prepared for.
    std::vector<PixelCodes> colourCodes_;  ///< Luma, blue, red.
    std::vector<PixelCodes> alphaCodes_;
    std::vector<Part> parts_;  ///< Empty for 4:4:4.
    // Red, green and blue of a line, for parts_.
    std::vector<EdgeLine<std::int32_t>> even_;
    std::vector<EdgeLine<std::int32_t>> odd_;
};

}  // namespace ruvex::media
