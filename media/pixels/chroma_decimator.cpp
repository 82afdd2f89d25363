#include "media/pixels/chroma_decimator.h"

#include <algorithm>
#include <array>

namespace ruvex::media {
namespace {

/// The whole quotient, rounded down.
constexpr int half(int number) {
    return number >> 1;
}

/// With steps other than 2, for which there are no fast loops.
void decimateAny(const ChromaResampler& across, const std::int32_t* even, const std::int32_t* odd,
                 std::int32_t* outputs) {
    for (int i = 0; i < across.outputs(); ++i) {
        int at = across.first(i);
        std::int32_t sum = 0;
        for (const int weight : across.weights(i)) {
            sum += weight * (at % 2 == 0 ? even : odd)[half(at)];
            ++at;
        }
        outputs[i] = sum;
    }
}

}  // namespace

template <class Sum>
ChromaDecimator<Sum>::ChromaDecimator(ChromaResampler across, ChromaResampler down,
                                      const YuvKernels& kernels)
    : across_(std::move(across)),
      down_(std::move(down)),
      kernels_(kernels),
      decimated_(down_.taps(), kColours * across_.outputs()),
      sums_(kColours, std::vector<Sum>(static_cast<std::size_t>(across_.outputs()))) {}

template <class Sum>
void ChromaDecimator<Sum>::add(int line, const PairLines& lines) {
    std::int32_t* outputs = decimated_.add(line);
    for (int colour = 0; colour < kColours; ++colour, outputs += across_.outputs()) {
        if (across_.advance() == 2) {
            decimateByTwo(lines.even[colour], lines.odd[colour], outputs);
        } else {
            decimateAny(across_, lines.even[colour], lines.odd[colour], outputs);
        }
    }
}

/// A tap of the filter is a line that is moved by whole pairs.
template <class Sum>
void ChromaDecimator<Sum>::decimateByTwo(const std::int32_t* even, const std::int32_t* odd,
                                         std::int32_t* outputs) const {
    std::array<const std::int32_t*, kMostTaps> moved{};
    std::array<std::int32_t, kMostTaps> weights{};
    int taps = 0;
    int at = across_.first(0);
    for (const int weight : across_.weights(0)) {
        if (weight != 0) {
            moved[static_cast<std::size_t>(taps)] = (at % 2 == 0 ? even : odd) + half(at);
            weights[static_cast<std::size_t>(taps++)] = weight;
        }
        ++at;
    }
    kernels_.integers.sumComponents(moved.data(), weights.data(), taps, 0, outputs,
                                    across_.outputs());
}

template <class Sum>
bool ChromaDecimator<Sum>::ready(int i, int line) const {
    return i < down_.outputs() &&
           std::min(down_.first(i) + down_.taps(), down_.inputs()) <= line + 1;
}

template <class Sum>
RgbSums<Sum> ChromaDecimator<Sum>::sums(int i) {
    const int width = across_.outputs();
    for (int colour = 0; colour < kColours; ++colour) {
        const auto from = decimated_.lines(down_.first(i), down_.inputs(), colour * width);
        kernels_.with<Sum>().sumComponents(from.data(), down_.weights(i).data(), down_.taps(), 0,
                                           sums_[static_cast<std::size_t>(colour)].data(), width);
    }
    return {sums_[0].data(), sums_[1].data(), sums_[2].data(), width};
}

template class ChromaDecimator<std::int32_t>;
template class ChromaDecimator<double>;

}  // namespace ruvex::media
