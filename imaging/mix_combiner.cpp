#include "imaging/mix_combiner.h"

#include <algorithm>
#include <cstring>

#include "imaging/pixel_pairs.h"

namespace ruvex {
namespace {

struct Weights {
    float first, second;

    // Written so that NaN needs the clamp too, which turns a sum of NaN into 0.
    bool needClamp() const { return !(first >= 0.0f && second >= 0.0f && first + second <= 1.0f); }
};

template <class P, bool Clamped>
typename P::Component mixed(typename P::Component a, typename P::Component b,
                            const Weights& weights) {
    float value = static_cast<float>(a) * weights.first + static_cast<float>(b) * weights.second;
    if (Clamped) value = std::max(0.0f, std::min(value, PixelTraits<P>::kTop));
    return static_cast<typename P::Component>(static_cast<std::int32_t>(value));
}

// Whether writing `length` pixels at `to` changes no pixel that `run` has still to read.
template <class P>
bool independent(const P* to, const SourceRun<P>& run, std::int32_t length) {
    if (run.step == 1 && run.pixels == to) return true;
    const P* last = run.pixels + std::ptrdiff_t{run.step} * (length - 1);
    return std::max(run.pixels, last) < to || std::min(run.pixels, last) >= to + length;
}

template <class P, bool Clamped>
void mixPixels(P* to, const P* a, const P* b, std::int32_t length, const Weights& weights) {
    // The local buffer shows the compiler that reads and writes do not overlap, so that it
    // vectorises the loop; the Map may be one of the inputs.
    constexpr std::int32_t kTile = 32;
    for (std::int32_t i = 0; i < length; i += kTile) {
        P out[kTile];
        const std::int32_t n = std::min(kTile, length - i);
        for (std::int32_t j = 0; j < n; ++j) {
            for (int k = 0; k < 4; ++k) {
                out[j].c[k] = mixed<P, Clamped>(a[i + j].c[k], b[i + j].c[k], weights);
            }
        }
        std::memcpy(static_cast<void*>(to + i), out, static_cast<std::size_t>(n) * sizeof(P));
    }
}

template <class P, bool Clamped>
void mixRun(P* to, const SourceRun<P>& a, const SourceRun<P>& b, std::int32_t length,
            const Weights& weights) {
    if (a.step == 1 && b.step == 1 && independent(to, a, length) && independent(to, b, length)) {
        return mixPixels<P, Clamped>(to, a.pixels, b.pixels, length, weights);
    }
    for (std::ptrdiff_t i = 0; i < length; ++i) {
        mixPixels<P, Clamped>(to + i, a.pixels + i * a.step, b.pixels + i * b.step, 1, weights);
    }
}

}  // namespace

template <class P>
void MixCombiner<P>::work(VxTexture<P>* first, VxTexture<P>* second, VxTexture<P>* target) {
    const RowLoop loop = this->rowLoop();
    const Weights weights{weightFirst, weightSecond};
    const auto mixRows = [&](auto mix) {
        forEachRow(loop, this->interrupt, [&](std::int32_t y) {
            forEachPixelPair(*first, *second, *target, loop, y,
                             [&](P* to, const auto& a, const auto& b, std::int32_t length) {
                                 mix(to, a, b, length, weights);
                             });
        });
    };
    if (weights.needClamp()) {
        mixRows(mixRun<P, true>);
    } else {
        mixRows(mixRun<P, false>);
    }
}

template class MixCombiner<Rgba8>;
template class MixCombiner<RgbaS214>;

}  // namespace ruvex
