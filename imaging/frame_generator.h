// Clearing a picture to one colour.

#pragma once

#include "imaging/generator.h"
#include "imaging/texture.h"

namespace ruvex {

/// Fills the window of the Map with `colour`.
template <class P>
class ColouredFrameGenerator : public Generator<VxTexture<P>> {
public:
    void work(VxTexture<P>* target) override;

    P colour{};
    bool zero = false;  ///< fill with zero bytes and ignore `colour`
};

extern template class ColouredFrameGenerator<Rgba8>;
extern template class ColouredFrameGenerator<RgbaS214>;

}  // namespace ruvex
