// The crop of the input, and the blanking of the output outside it.

#pragma once

#include <optional>

#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"

namespace ruvex {

/// Sets the valid range of an input's axes to the effect's crop window and, for
/// CropMode::WindowEdges, its edge methods and fill pixel. No pixel is copied.
template <class P>
void applyCrop(const VxDsEffect& effect, VxTexture<P>& texture);

/// Sets the pixels of `output` outside the crop window of `input` to zero, within `region` (without
/// a value: the whole output). Stops when the effect is interrupted.
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
