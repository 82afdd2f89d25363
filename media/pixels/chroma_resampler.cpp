#include "media/pixels/chroma_resampler.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ruvex::media {
namespace {

/// Samples that the cubic reaches to either side, before it is stretched.
constexpr int kReach = 2;

/// Keys' cubic convolution kernel; `distance` is at least 0.
double cubic(double distance) {
    constexpr double kA = -0.6;
    const double d = distance;
    if (d < 1) {
        return ((kA + 2) * d - (kA + 3)) * d * d + 1;
    }
    return d < kReach ? kA * (((d - 5) * d + 8) * d - 4) : 0;
}

/// The samples that lie nearer to the centre than the stretched cubic's reach.
constexpr int tapsOf(int stretch) {
    return 2 * kReach * stretch;
}

/// The weights of consecutive samples, of which the first lies `distance` before the centre.
std::vector<double> cubicWeights(double distance, int stretch) {
    std::vector<double> weights;
    for (int tap = 0; tap < tapsOf(stretch); ++tap) {
        weights.push_back(cubic(std::abs(tap - distance) / stretch));
    }
    const double sum = std::accumulate(weights.begin(), weights.end(), 0.0);
    for (double& weight : weights) {
        weight /= sum;
    }
    return weights;
}

}  // namespace

ChromaResampler::ChromaResampler(int inputs, int taps)
    : inputs_(inputs), taps_(std::min(taps, inputs)) {}

ChromaResampler ChromaResampler::decimator(const ChromaAxis& axis, int luma) {
    const int step = 1 << axis.log2Step;
    ChromaResampler resampler(luma, step == 1 ? 1 : tapsOf(step));
    for (int i = 0; i < axis.count(luma); ++i) {
        resampler.add(i * step + axis.offset, step);
    }
    return resampler;
}

ChromaResampler ChromaResampler::interpolator(const ChromaAxis& axis, int luma) {
    const int step = 1 << axis.log2Step;
    ChromaResampler resampler(axis.count(luma), step == 1 ? 1 : tapsOf(1));
    for (int i = 0; i < luma; ++i) {
        resampler.add((i - axis.offset) / step, 1);
    }
    return resampler;
}

void ChromaResampler::add(double centre, int stretch) {
    if (taps_ == 1) {
        first_.push_back(std::clamp(static_cast<int>(std::floor(centre)), 0, inputs_ - 1));
        weights_.push_back(1);
        return;
    }
    const int begin = static_cast<int>(std::floor(centre)) + 1 - kReach * stretch;
    const int first = std::clamp(begin, 0, inputs_ - taps_);
    first_.push_back(first);
    weights_.resize(weights_.size() + static_cast<std::size_t>(taps_));
    double* const weights = weights_.data() + weights_.size() - taps_;
    const std::vector<double> cubics = cubicWeights(centre - begin, stretch);
    for (int tap = 0; tap < tapsOf(stretch); ++tap) {
        weights[std::clamp(begin + tap, 0, inputs_ - 1) - first] +=
            cubics[static_cast<std::size_t>(tap)];
    }
}

template <int Taps>
void ChromaResampler::resampleBy(const double* from, double* to) const {
    for (int i = 0; i < size(); ++i) {
        const double* const samples = from + first(i);
        const double* const shares = weights(i).data();
        double sum = 0;
        for (int tap = 0; tap < (Taps == 0 ? taps_ : Taps); ++tap) {
            sum += shares[tap] * samples[tap];
        }
        to[i] = sum;
    }
}

void ChromaResampler::resample(const double* from, double* to) const {
    switch (taps_) {
        case 1:
            return resampleBy<1>(from, to);
        case tapsOf(1):
            return resampleBy<tapsOf(1)>(from, to);
        case tapsOf(2):
            return resampleBy<tapsOf(2)>(from, to);
        default:
            return resampleBy<0>(from, to);
    }
}

}  // namespace ruvex::media
