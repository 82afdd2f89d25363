// The chroma samples of a picture, interpolated to its luma samples.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <cstdint>
#include <vector>

#include "media/pixels/chroma_resampler.h"
#include "media/pixels/edge_line.h"
#include "media/pixels/kernels/yuv_kernels.h"
#include "media/pixels/line_ring.h"

namespace ruvex::media {

/// Interpolates lines from top to bottom. `Sum` is a type that holds all sums exactly.
template <class Sum>
class ChromaInterpolator {
public:
    /// The colour differences of a line, in multiples of 1 / (the units of both filters); 0 is
    /// neutral. The interpolator owns them and keeps them until the next call.
    struct Line {
        const Sum* blue;
        const Sum* red;
    };

    /// `format` and `kernels` must outlive it. `neutral` is the code value without colour.
    ChromaInterpolator(const AVPixFmtDescriptor& format, int neutral, ChromaResampler across,
                       const YuvSumKernels<Sum>& kernels);

    /// Line i of `lines`, interpolated with `down`, which is the filter for these lines. Set
    /// `begins` for the first call for a picture or other lines of it.
    Line line(const AVFrame& picture, const PictureLines& lines, const ChromaResampler& down, int i,
              bool begins);

private:
    static constexpr int kSides = 2;  ///< Blue and red.

    void readLine(const AVFrame& picture, const PictureLines& lines, int number);
    const Sum* interpolated(int side);

    const AVPixFmtDescriptor& format_;
    int neutral_;
    ChromaResampler across_;
    const YuvSumKernels<Sum>& kernels_;
    LineRing<std::uint16_t> codes_;          ///< Blue, then red.
    std::vector<EdgeLine<Sum>> sums_;        ///< Interpolated between lines.
    std::vector<std::vector<Sum>> results_;  ///< Interpolated along lines too.
};

}  // namespace ruvex::media
