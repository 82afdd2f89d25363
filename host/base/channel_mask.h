// The channel mask: restores the input's channels that the effect must not change.

#pragma once

#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"

namespace ruvex {

/// The channels that the effect may change; a channel with 0 is copied from the input.
struct ChannelMask {
    std::int32_t red, green, blue, alpha;
};

/// Copies the channels with mask 0 from `input` to `output`, within the effect's region and the
/// input's rectangle; alpha only if `effect.alphaMaskable` is set. Sets the input's valid range to
/// the whole input.
template <class P>
void fixChannelMask(VxDsEffect& effect, VxTexture<P>& output, VxTexture<P>& input,
                    const ChannelMask& mask);

/// The region of `effect` for the finishing steps, in pixels of the output: for a field of half
/// height, rows are halved.
PixelRegion finishingRegion(const VxDsEffect& effect);

/// The field mode for processors: 0 all rows; 1 or 2 if the other field's rows are skipped.
std::int32_t fieldOf(const VxDsEffect& effect);

extern template void fixChannelMask(VxDsEffect&, VxTexture<Rgba8>&, VxTexture<Rgba8>&,
                                    const ChannelMask&);
extern template void fixChannelMask(VxDsEffect&, VxTexture<RgbaS214>&, VxTexture<RgbaS214>&,
                                    const ChannelMask&);

}  // namespace ruvex
