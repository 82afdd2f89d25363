// The filters that interpolate and decimate chroma samples along one side of a picture.

#pragma once

#include <span>
#include <vector>

#include "media/pixels/chroma_grid.h"

namespace ruvex::media {

/// Each output sample is a weighted sum of neighbouring input samples. The weights are those of
/// Keys' cubic with a = -0.6, which is stretched for decimation. They are kept as integers, whose
/// sum stands for 1, so that sums of samples are exact. Beyond the edges the outermost sample is
/// repeated.
class ChromaResampler {
public:
    /// From `luma` samples to the chroma samples beside them.
    static ChromaResampler decimator(const ChromaAxis& axis, int luma);
    /// From the chroma samples beside `luma` samples to these.
    static ChromaResampler interpolator(const ChromaAxis& axis, int luma);

    int inputs() const { return inputs_; }
    int outputs() const { return outputs_; }
    /// Input samples that an output sample depends on: number first(i) to first(i) + taps() - 1, of
    /// which some may lie beyond an edge. A single one never does.
    int taps() const { return taps_; }
    int first(int output) const {
        return output / cycle_ * advance_ + begins_[static_cast<std::size_t>(output % cycle_)];
    }
    /// Of these input samples; multiples of 1 / unit().
    std::span<const int> weights(int output) const {
        const auto taps = static_cast<std::size_t>(taps_);
        return {&weights_[static_cast<std::size_t>(output % cycle_) * taps], taps};
    }
    /// The sum of an output's weights.
    int unit() const { return unit_; }
    /// The largest sum of an output's absolute weights. It limits what sums of samples can reach.
    int gain() const;
    /// Outputs after which the weights repeat, and the inputs between two such outputs.
    int cycle() const { return cycle_; }
    int advance() const { return advance_; }

private:
    ChromaResampler(int inputs, int outputs, int cycle, int advance, int taps);

    /// Adds the weights of an output of the cycle. It lies at `centre`, in eighths of an input
    /// sample times `stretch`, by which the cubic is stretched.
    void add(int centre, int stretch);
    /// Divides all weights by what divides them without a rest.
    void shorten();

    int inputs_;
    int outputs_;
    int cycle_;
    int advance_;
    int taps_;
    int unit_ = 1;
    std::vector<int> begins_;   ///< The first input sample of each output of a cycle.
    std::vector<int> weights_;  ///< `taps_` for each output of a cycle.
};

}  // namespace ruvex::media
