// Blending two pictures with two weights.

#pragma once

#include "imaging/combiner.h"
#include "imaging/texture.h"

namespace ruvex {

/// first * weightFirst + second * weightSecond for all four components, in raw values, truncated.
/// If a weight is negative, or their sum is above 1, the result is clamped to 0 .. the largest
/// value of the type (255, or 32767 in S2.14). The Map may be one of the inputs.
template <class P>
class MixCombiner : public Combiner<VxTexture<P>> {
public:
    void work(VxTexture<P>* first, VxTexture<P>* second, VxTexture<P>* target) override;

    float weightFirst = 0.0f;
    float weightSecond = 0.0f;
};

extern template class MixCombiner<Rgba8>;
extern template class MixCombiner<RgbaS214>;

}  // namespace ruvex
