#include "media/pixels/chroma_interpolator.h"

#include <algorithm>

#include "media/pixels/component_read.h"

namespace ruvex::media {
namespace {

constexpr int kFirstChroma = 1;  ///< The component of blue, before that of red.
/// The lines of any filter that interpolates.
constexpr int kInterpolatedLines = 4;

/// Of filters with more phases than the loop in the kernels has.
template <class Sum>
void interpolateAny(const ChromaResampler& across, const Sum* inputs, Sum* outputs) {
    for (int i = 0; i < across.outputs(); ++i) {
        const Sum* input = inputs + across.first(i);
        Sum sum = 0;
        for (const int weight : across.weights(i)) sum += static_cast<Sum>(weight) * *input++;
        outputs[i] = sum;
    }
}

}  // namespace

template <class Sum>
ChromaInterpolator<Sum>::ChromaInterpolator(const AVPixFmtDescriptor& format, int neutral,
                                            ChromaResampler across,
                                            const YuvSumKernels<Sum>& kernels)
    : format_(format),
      neutral_(neutral),
      across_(std::move(across)),
      kernels_(kernels),
      codes_(kInterpolatedLines, kSides * across_.inputs()),
      sums_(kSides, EdgeLine<Sum>(across_.inputs())),
      results_(kSides, std::vector<Sum>(static_cast<std::size_t>(
                           across_.cycle() == 1 ? 0 : across_.outputs()))) {}

template <class Sum>
auto ChromaInterpolator<Sum>::line(const AVFrame& picture, const PictureLines& lines,
                                   const ChromaResampler& down, int i, bool begins) -> Line {
    if (begins) codes_.clear();
    const int height = down.inputs();
    for (int tap = 0; tap < down.taps(); ++tap) {
        const int number = std::clamp(down.first(i) + tap, 0, height - 1);
        if (!codes_.has(number)) readLine(picture, lines, number);
    }
    for (int side = 0; side < kSides; ++side) {
        const auto from = codes_.lines(down.first(i), height, side * across_.inputs());
        kernels_.sumCodes(from.data(), down.weights(i).data(), down.taps(), -neutral_ * down.unit(),
                          sums_[static_cast<std::size_t>(side)].data(), across_.inputs());
    }
    return {interpolated(0), interpolated(1)};
}

template <class Sum>
void ChromaInterpolator<Sum>::readLine(const AVFrame& picture, const PictureLines& lines,
                                       int number) {
    const auto width = static_cast<std::size_t>(across_.inputs());
    std::uint16_t* values = codes_.add(number);
    for (int side = 0; side < kSides; ++side, values += width) {
        readComponent(picture, format_, kFirstChroma + side, lines.first + number * lines.step,
                      {values, width});
    }
}

template <class Sum>
const Sum* ChromaInterpolator<Sum>::interpolated(int side) {
    EdgeLine<Sum>& sums = sums_[static_cast<std::size_t>(side)];
    if (across_.cycle() == 1) return sums.data();
    sums.extend();
    Sum* const results = results_[static_cast<std::size_t>(side)].data();
    if (across_.cycle() == 2) {
        const int first[] = {across_.first(0), across_.first(1)};
        kernels_.interpolate(sums.data(), first, across_.weights(0).data(), results,
                             across_.outputs());
    } else {
        interpolateAny(across_, sums.data(), results);
    }
    return results;
}

template class ChromaInterpolator<std::int32_t>;
template class ChromaInterpolator<double>;

}  // namespace ruvex::media
