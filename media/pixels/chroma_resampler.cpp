#include "media/pixels/chroma_resampler.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace ruvex::media {
namespace {

/// Samples that the cubic reaches to either side, before it is stretched.
constexpr int kReach = 2;
/// Places are counted in eighths: chroma samples and luma samples lie at multiples of 1/8 of each
/// other's steps.
constexpr int kPlaces = 8;

/// Keys' cubic convolution kernel, multiplied by 5 * 8^3; `eighths` is a distance, at least 0. With
/// d = eighths / 8 it is (7 d^3 - 12 d^2 + 5) / 5 below 1 and -3 (d^3 - 5 d^2 + 8 d - 4) / 5 from
/// there to 2.
constexpr int cubic(int eighths) {
    constexpr int kSquare = kPlaces * kPlaces;
    constexpr int kCube = kSquare * kPlaces;
    const int n = eighths;
    if (n < kPlaces) return (7 * n - 12 * kPlaces) * n * n + 5 * kCube;
    if (n < kReach * kPlaces) {
        return -3 * (((n - 5 * kPlaces) * n + 8 * kSquare) * n - 4 * kCube);
    }
    return 0;
}

/// The samples that lie nearer to the centre than the stretched cubic's reach.
constexpr int tapsOf(int stretch) {
    return 2 * kReach * stretch;
}

constexpr int floorQuotient(int dividend, int divisor) {
    return (dividend - (dividend < 0 ? divisor - 1 : 0)) / divisor;
}

int eighths(double value) {
    return static_cast<int>(value * kPlaces);
}

}  // namespace

ChromaResampler::ChromaResampler(int inputs, int outputs, int cycle, int advance, int taps)
    : inputs_(inputs), outputs_(outputs), cycle_(cycle), advance_(advance), taps_(taps) {}

ChromaResampler ChromaResampler::decimator(const ChromaAxis& axis, int luma) {
    const int step = 1 << axis.log2Step;
    ChromaResampler resampler(luma, axis.count(luma), 1, step, step == 1 ? 1 : tapsOf(step));
    resampler.add(eighths(axis.offset), step);
    resampler.shorten();
    return resampler;
}

ChromaResampler ChromaResampler::interpolator(const ChromaAxis& axis, int luma) {
    const int step = 1 << axis.log2Step;
    ChromaResampler resampler(axis.count(luma), luma, step, 1, step == 1 ? 1 : tapsOf(1));
    for (int i = 0; i < step; ++i) {
        resampler.add((i * kPlaces - eighths(axis.offset)) / step, 1);
    }
    resampler.shorten();
    return resampler;
}

void ChromaResampler::add(int centre, int stretch) {
    const int before = floorQuotient(centre, kPlaces);
    const int begin = taps_ == 1 ? before : before + 1 - kReach * stretch;
    begins_.push_back(begin);
    for (int tap = 0; tap < taps_; ++tap) {
        weights_.push_back(cubic(std::abs((begin + tap) * kPlaces - centre) / stretch));
    }
}

void ChromaResampler::shorten() {
    int divisor = 0;
    for (const int weight : weights_) divisor = std::gcd(divisor, weight);
    for (int& weight : weights_) weight /= divisor;
    unit_ = std::accumulate(weights_.begin(), weights_.begin() + taps_, 0);
}

int ChromaResampler::gain() const {
    int most = 0;
    for (int output = 0; output < cycle_; ++output) {
        int sum = 0;
        for (const int weight : weights(output)) sum += std::abs(weight);
        most = std::max(most, sum);
    }
    return most;
}

}  // namespace ruvex::media
