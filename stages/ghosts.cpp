#include "stages/ghosts.h"

#include <algorithm>
#include <new>

#include "imaging/buffer.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"
#include "imaging/pixel_convert.h"
#include "stages/kernels/row_kernels.h"
#include "stages/threshold.h"

namespace ruvex {
namespace {

// The range of a ghost's random start on its noise curve.
constexpr float kPlaceSpreadOfGhosts = 100.0f;
constexpr std::int32_t kGhostOctaves = 4;

template <class T>
std::unique_ptr<T[]> allocate(std::int32_t count) {
    constexpr std::int64_t kMost = kMaxBufferBytes / static_cast<std::int64_t>(sizeof(T));
    if (count > kMost) return nullptr;
    return std::unique_ptr<T[]>(new (std::nothrow) T[static_cast<std::size_t>(count)]);
}

}  // namespace

bool hasGhosts(const SignalParameters& signal) {
    return aboveThreshold(signal.breakup, signal.ghostThreshold) && signal.numGhosts != 0;
}

template <class P>
Ghosts<P>::Ghosts(const SignalParameters& signal)
    : count_(std::max(signal.numGhosts, 0)),
      offsets_(allocate<std::int32_t>(count_)),
      weights_(allocate<float>(count_)),
      rows_(allocate<const P*>(count_)) {
    if (!usable()) return;
    // 0 at the threshold and 1 at a level of 1.
    const float strength =
        std::clamp(thresholdLine(signal.breakup, 1.0f, signal.ghostThreshold), 0.0f, 1.0f);
    auto seed = static_cast<std::uint32_t>(signal.seed);
    for (std::int32_t i = 0; i < count_; ++i) {
        const float place = uniform(seed) * kPlaceSpreadOfGhosts + signal.ghostPhase;
        offsets_[i] = truncateToInt(signal.noiseTable->fractalNoise(place, kGhostOctaves) *
                                    signal.ghostDistance * strength);
    }
    for (std::int32_t i = 0; i < count_; ++i) {
        weights_[i] = (uniform(seed) * 2.0f - 1.0f) * signal.ghostStrength;
    }
}

template <class P>
void Ghosts<P>::add(const P* row, std::int32_t width, std::int32_t first, std::int32_t count,
                    P* to) {
    for (std::int32_t i = 0; i < count_; ++i) {
        const std::int64_t column = (std::int64_t{first} + offsets_[i]) % width;
        rows_[i] = row + (column < 0 ? column + width : column);
    }
    bestRowKernels<P>().addGhosts(row + first, rows_.get(), weights_.get(), count_, count, to);
}

template class Ghosts<Rgba8>;
template class Ghosts<RgbaS214>;

}  // namespace ruvex
