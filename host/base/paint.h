// Painting the effect onto the picture through a brush's mask.

#pragma once

#include "host/base/vx_ds_effect.h"
#include "imaging/combiner.h"
#include "imaging/texture.h"

namespace ruvex {

using MaskTexture = VxTexture<Channel8>;

/// Blends the Map, which holds the effect, with the input by a mask byte: 0 is the input, 255 the
/// effect. Where there is no mask the input shows; where there is no input, nothing does.
template <class P>
class VxDsPaintCombiner : public Combiner<VxTexture<P>, VxTexture<P>, MaskTexture> {
public:
    void work(VxTexture<P>* input, MaskTexture* mask, VxTexture<P>* output) override;
};

/// Runs it over the effect's region. The input is seen whole, whatever its crop.
template <class P>
void paintThroughMask(VxDsEffect& effect, VxTexture<P>& output, const VxTexture<P>& input,
                      MaskTexture& mask);

extern template void paintThroughMask(VxDsEffect&, VxTexture<Rgba8>&, const VxTexture<Rgba8>&,
                                      MaskTexture&);
extern template void paintThroughMask(VxDsEffect&, VxTexture<RgbaS214>&, const VxTexture<RgbaS214>&,
                                      MaskTexture&);

}  // namespace ruvex
