#include "media/pixels/chroma_decimator.h"

#include <algorithm>

namespace ruvex::media {
namespace {

/// With filters of other lengths than the loop in the kernels has.
void decimateAny(const ChromaResampler& across, const std::int32_t* inputs, std::int32_t* outputs) {
    for (int i = 0; i < across.outputs(); ++i) {
        const std::int32_t* input = inputs + across.first(i);
        std::int32_t sum = 0;
        for (const int weight : across.weights(i)) sum += weight * *input++;
        outputs[i] = sum;
    }
}

}  // namespace

template <class Sum>
ChromaDecimator<Sum>::ChromaDecimator(ChromaResampler across, ChromaResampler down,
                                      const YuvKernels& kernels,
                                      const YuvSumKernels<Sum>& sumKernels)
    : across_(std::move(across)),
      down_(std::move(down)),
      kernels_(kernels),
      sumKernels_(sumKernels),
      decimated_(down_.taps(), kColours * across_.outputs()),
      sums_(kColours, std::vector<Sum>(static_cast<std::size_t>(across_.outputs()))) {}

template <class Sum>
void ChromaDecimator<Sum>::add(int line, const RgbLine<std::int32_t>& lines) {
    std::int32_t* outputs = decimated_.add(line);
    for (const std::int32_t* inputs : {lines.red, lines.green, lines.blue}) {
        if (across_.advance() == 2) {
            kernels_.decimate(inputs + across_.first(0), across_.weights(0).data(), outputs,
                              across_.outputs());
        } else {
            decimateAny(across_, inputs, outputs);
        }
        outputs += across_.outputs();
    }
}

template <class Sum>
bool ChromaDecimator<Sum>::ready(int i, int line) const {
    return i < down_.outputs() &&
           std::min(down_.first(i) + down_.taps(), down_.inputs()) <= line + 1;
}

template <class Sum>
RgbLine<Sum> ChromaDecimator<Sum>::sums(int i) {
    const int width = across_.outputs();
    for (int colour = 0; colour < kColours; ++colour) {
        const auto from = decimated_.lines(down_.first(i), down_.inputs(), colour * width);
        sumKernels_.sumComponents(from.data(), down_.weights(i).data(), down_.taps(), 0,
                                  sums_[static_cast<std::size_t>(colour)].data(), width);
    }
    return {sums_[0].data(), sums_[1].data(), sums_[2].data(), width};
}

template class ChromaDecimator<std::int32_t>;
template class ChromaDecimator<double>;

}  // namespace ruvex::media
