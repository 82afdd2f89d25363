// Turning one picture over about another.

#pragma once

#include "imaging/combiner.h"
#include "imaging/texture.h"

namespace ruvex {

/// Twice the first input less the second, for all four components and for the Map's fill pixel: the
/// first is the mean about which the second is turned over. The doubling is made in float, the
/// difference wraps. The Map may be one of the inputs.
class SubtractCombiner : public Combiner<VxTexture<RgbaInt>> {
public:
    using Texture = VxTexture<RgbaInt>;

    void work(Texture* first, Texture* second, Texture* target) override;
    /// Sets the fill pixel, once the workers no longer read that of an input.
    void finish(Texture* first, Texture* second, Texture* target) override;
};

}  // namespace ruvex
