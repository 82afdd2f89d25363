// Computes 2 * first - second of two integer pictures.

#pragma once

#include "imaging/combiner.h"
#include "imaging/texture.h"

namespace ruvex {

/// 2 * first - second, for all four components of all pixels and of the Map's fill pixel. The
/// product is computed in float, the difference wraps. The Map may be one of the inputs.
class SubtractCombiner : public Combiner<VxTexture<RgbaInt>> {
public:
    using Texture = VxTexture<RgbaInt>;

    void work(Texture* first, Texture* second, Texture* target) override;
    /// Sets the Map's fill pixel. Not earlier, since workers read it if the Map is an input.
    void finish(Texture* first, Texture* second, Texture* target) override;
};

}  // namespace ruvex
