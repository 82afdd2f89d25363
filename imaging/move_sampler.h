// Resampling of a picture through a 3 by 3 matrix.

#pragma once

#include <cstdint>

#include "imaging/maths/matrix3.h"
#include "imaging/sampler.h"
#include "imaging/texture.h"

namespace ruvex {

enum class MoveFilter : std::uint32_t {
    Nearest = 0,
    Bilinear = 1,
    Footprint = 2,  ///< one bilinear sample at the centre of the pixel's area in the source
    Sinc = 3,       ///< Hann-windowed sinc of radius 5
};

/// Fills the Map with the source resampled through `matrix`, which maps a Map position to a source
/// position. The centre of Map pixel (x, y) is (x + 0.5, y + 0.5). Within a row, the source
/// position is computed for the first pixel; for each next pixel the matrix's first row is added,
/// in float. An unknown `filter` does nothing, and Sinc with `accumulate` does nothing.
template <class P>
class VxDualMoveSampler : public Sampler<VxTexture<P>> {
public:
    using Texture = VxTexture<P>;

    void work(Texture* source, Texture* target) override;

    /// Stores the source pixel unchanged, or the fill pixel.
    virtual void moveNearest(Texture& source, Texture& target);
    virtual void moveFootprint(Texture& source, Texture& target);
    /// Truncates without a clamp: a bilinear result lies between its four neighbours.
    virtual void moveBilinear(Texture& source, Texture& target);
    /// Stores with a clamp, since the kernel overshoots.
    virtual void moveSinc(Texture& source, Texture& target);

    // With `accumulate`: add truncate(truncate(sample) * weight) to the Map; the sum wraps in the
    // storage type.
    virtual void addNearest(Texture& source, Texture& target);
    virtual void addFootprint(Texture& source, Texture& target);
    /// With `perspective` the sample is added without the weight.
    virtual void addBilinear(Texture& source, Texture& target);

    Matrix3 matrix = kIdentity3;
    MoveFilter filter = MoveFilter::Nearest;
    float weight = 1.0f;
    bool accumulate = false;
    bool perspective = false;  ///< divide sx and sy by sw
};

/// The resampler that the stages use.
template <class P>
class VxMoveSampler : public VxDualMoveSampler<P> {};

extern template class VxDualMoveSampler<Rgba8>;
extern template class VxDualMoveSampler<RgbaS214>;

}  // namespace ruvex
