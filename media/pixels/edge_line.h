// A line of samples that goes on beyond both edges.

#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ruvex::media {

/// Samples with room for kEdge more at either side, where the outermost one can be repeated for the
/// filters of a ChromaResampler.
template <class Sample>
class EdgeLine {
public:
    explicit EdgeLine(int width)
        : width_(width), samples_(static_cast<std::size_t>(width) + 2 * kEdge) {}

    /// The first sample; the line owns the memory.
    Sample* data() { return samples_.data() + kEdge; }
    const Sample* data() const { return samples_.data() + kEdge; }

    /// Repeats the outermost samples beyond the edges.
    void extend() { extend(data()[0], data()[width_ - 1]); }
    /// Sets the samples before and after the line.
    void extend(Sample before, Sample after) {
        std::fill_n(samples_.begin(), kEdge, before);
        std::fill_n(samples_.end() - kEdge, kEdge, after);
    }

private:
    /// What the widest filter, which decimates by 4, reaches beyond the edges.
    static constexpr std::ptrdiff_t kEdge = 16;

    int width_;
    std::vector<Sample> samples_;
};

}  // namespace ruvex::media
