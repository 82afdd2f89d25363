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
    Footprint = 2,  ///< without a pyramid, a bilinear sample at the footprint's centre
    Sinc = 3,       ///< Hann-windowed sinc of radius 5
};

/// Fills the Map with the source as seen through `matrix`, which takes a Map position to a source
/// position. The centre of Map pixel (x, y) is (x + 0.5, y + 0.5); along a row the position is
/// carried on by adding the matrix's first row, in float. Any `filter` beyond the four does
/// nothing, nor does Sinc with `accumulate`.
template <class P>
class VxDualMoveSampler : public Sampler<VxTexture<P>> {
public:
    using Texture = VxTexture<P>;

    void work(Texture* source, Texture* target) override;

    /// Stores the source pixel as it stands, or the fill pixel.
    virtual void moveNearest(Texture& source, Texture& target);
    virtual void moveFootprint(Texture& source, Texture& target);
    /// Truncates without a clamp: a bilinear result stays in the range of its corners.
    virtual void moveBilinear(Texture& source, Texture& target);
    /// Stores with a clamp, since the kernel overshoots.
    virtual void moveSinc(Texture& source, Texture& target);

    // The accumulating forms add the truncated sample times `weight`, truncated again, with
    // wrap-around of the storage type.
    virtual void addNearest(Texture& source, Texture& target);
    virtual void addFootprint(Texture& source, Texture& target);
    /// Under perspective the sample is added without its weight.
    virtual void addBilinear(Texture& source, Texture& target);

    Matrix3 matrix = kIdentity3;
    MoveFilter filter = MoveFilter::Nearest;
    float weight = 1.0f;
    bool accumulate = false;
    bool perspective = false;  ///< divide by sw
};

/// The one that is used.
template <class P>
class VxMoveSampler : public VxDualMoveSampler<P> {};

extern template class VxDualMoveSampler<Rgba8>;
extern template class VxDualMoveSampler<RgbaS214>;

}  // namespace ruvex
