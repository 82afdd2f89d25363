// Shash: the picture of a television without a signal.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/noise/gradient_noise.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Draws one of five patterns, which depend on a seed and a frame number. The rows of grain, bars
/// and dashes draw random numbers in the order of a worker's share, so they also depend on the
/// number of workers.
template <class P>
class VxShashProc : public VxImgProc1<VxTexture<P>> {
public:
    VxShashProc();

    void run() override;
    void postPass() override;

    const VxGradientNoise* noiseTable = nullptr;  ///< not owned
    std::uint32_t seed = 0;
    std::int32_t outputFrame = 0;
    float scaleA = 1.0f;                ///< work pixels per pixel of the project frame
    ShashType type = ShashType::Grain;  ///< one of the five patterns; any other draws nothing

private:
    static constexpr int kWaves = 4;
    static constexpr int kSines = 1024;

    std::uint32_t frameSeed() const;
    void grain(Span rows, Span columns);
    void bars(Span rows, Span columns);
    void dashes(Span rows, Span columns);
    void snow(float amountMin, float amountMax, float softness);

    std::array<float, kWaves> harmonics_;
    std::array<float, kSines> sineTable_;
};

extern template class VxShashProc<Rgba8>;
extern template class VxShashProc<RgbaS214>;

}  // namespace ruvex
