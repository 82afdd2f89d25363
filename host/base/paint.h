// Blends the effect with its input through the mask of a paint stroke.

#pragma once

#include "host/base/vx_ds_effect.h"
#include "imaging/combiner.h"
#include "imaging/texture.h"

namespace ruvex {

using MaskTexture = VxTexture<Channel8>;

/// Blends the Map, which holds the effect, with the input according to the mask: 0 is the input,
/// 255 the effect. Outside the mask the result is the input; outside the input, zero takes its
/// place.
template <class P>
class VxDsPaintCombiner : public Combiner<VxTexture<P>, VxTexture<P>, MaskTexture> {
public:
    void work(VxTexture<P>* input, MaskTexture* mask, VxTexture<P>* output) override;
};

/// Runs VxDsPaintCombiner over the effect's region, with the whole input regardless of its crop.
template <class P>
void paintThroughMask(VxDsEffect& effect, VxTexture<P>& output, const VxTexture<P>& input,
                      MaskTexture& mask);

extern template void paintThroughMask(VxDsEffect&, VxTexture<Rgba8>&, const VxTexture<Rgba8>&,
                                      MaskTexture&);
extern template void paintThroughMask(VxDsEffect&, VxTexture<RgbaS214>&, const VxTexture<RgbaS214>&,
                                      MaskTexture&);

}  // namespace ruvex
