// The colours of a frame at the chroma samples of a picture.

#pragma once

#include <cstdint>
#include <vector>

#include "media/pixels/chroma_resampler.h"
#include "media/pixels/kernels/yuv_kernels.h"
#include "media/pixels/line_ring.h"

namespace ruvex::media {

/// Decimates the lines of a picture, or of one of its fields, from top to bottom. Red, green and
/// blue are decimated each, so that all sums are exact integers. `Sum` is a type that holds them.
template <class Sum>
class ChromaDecimator {
public:
    /// `kernels` must outlive it.
    ChromaDecimator(ChromaResampler across, ChromaResampler down, const YuvKernels& kernels);

    /// Takes the next line, from 0 on. `lines` has the outermost components repeated beyond both
    /// edges.
    void add(int line, const PairLines& lines);

    /// Whether the lines that chroma line i depends on have been taken, of which `line` is the
    /// last.
    bool ready(int i, int line) const;

    /// The sums for chroma line i, in multiples of 1 / (the units of both filters). The decimator
    /// owns them and keeps them until the next call.
    RgbSums<Sum> sums(int i);

private:
    static constexpr int kColours = 3;

    void decimateByTwo(const std::int32_t* even, const std::int32_t* odd,
                       std::int32_t* outputs) const;

    ChromaResampler across_;
    ChromaResampler down_;
    const YuvKernels& kernels_;
    LineRing<std::int32_t> decimated_;  ///< Along lines: red, green and blue.
    std::vector<std::vector<Sum>> sums_;
};

}  // namespace ruvex::media
