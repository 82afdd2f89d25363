// The crop window of the input, and blanking what lies outside it.

#pragma once

#include <optional>

#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"

namespace ruvex {

/// Sets the index model of an input by the effect's crop: the window, and with crop mode 2 the edge
/// methods and the edge colour. No pixel moves.
template <class P>
void applyCrop(const VxDsEffect& effect, VxTexture<P>& texture);

/// Clears to zero what of `output` lies outside the crop of `input`, within `region` (all of the
/// output without one). The effect's interruption record stops it.
template <class P>
void blankOutside(VxDsEffect& effect, VxTexture<P>& output, const VxTexture<P>& input,
                  const std::optional<PixelRegion>& region);

extern template void applyCrop(const VxDsEffect&, VxTexture<Rgba8>&);
extern template void applyCrop(const VxDsEffect&, VxTexture<RgbaS214>&);
extern template void blankOutside(VxDsEffect&, VxTexture<Rgba8>&, const VxTexture<Rgba8>&,
                                  const std::optional<PixelRegion>&);
extern template void blankOutside(VxDsEffect&, VxTexture<RgbaS214>&, const VxTexture<RgbaS214>&,
                                  const std::optional<PixelRegion>&);

}  // namespace ruvex
