// Interpolation and decimation of chroma samples along one side of a picture.

#pragma once

#include <span>
#include <vector>

#include "media/pixels/chroma_grid.h"

namespace ruvex::media {

/// Each output sample is a weighted sum of neighbouring input samples. The weights are those of
/// Keys' cubic with a = -0.6, which is stretched for decimation; they add up to 1. Beyond the edges
/// the outermost sample is repeated.
class ChromaResampler {
public:
    /// From `luma` samples to the chroma samples beside them.
    static ChromaResampler decimator(const ChromaAxis& axis, int luma);
    /// From the chroma samples beside `luma` samples to these.
    static ChromaResampler interpolator(const ChromaAxis& axis, int luma);

    /// Output samples.
    int size() const { return static_cast<int>(first_.size()); }
    /// Input samples that an output sample depends on: first(i) to first(i) + taps() - 1.
    int taps() const { return taps_; }
    int first(int output) const { return first_[static_cast<std::size_t>(output)]; }
    /// Of these input samples.
    std::span<const double> weights(int output) const {
        const auto taps = static_cast<std::size_t>(taps_);
        return {&weights_[static_cast<std::size_t>(output) * taps], taps};
    }

    /// Resamples a line. `to` has room for size() samples and does not overlap `from`.
    void resample(const double* from, double* to) const;

private:
    ChromaResampler(int inputs, int taps);

    /// Adds an output sample at `centre`, in input samples; `stretch` is the cubic's.
    void add(double centre, int stretch);
    template <int Taps>
    void resampleBy(const double* from, double* to) const;

    int inputs_;
    int taps_;
    std::vector<int> first_;
    std::vector<double> weights_;
};

}  // namespace ruvex::media
