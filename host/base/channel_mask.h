// Giving channels back to the input that the user keeps from the effect.

#pragma once

#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"

namespace ruvex {

/// Which channels the effect may change; 0 gives one back to the input.
struct ChannelMask {
    std::int32_t red, green, blue, alpha;
};

/// Copies the channels whose mask is 0 from `input` to `output`, within the effect's region and
/// the input's own rectangle. Alpha takes part only where the effect says so. The input's range
/// becomes the whole of it.
template <class P>
void fixChannelMask(VxDsEffect& effect, VxTexture<P>& output, VxTexture<P>& input,
                    const ChannelMask& mask);

/// The part of `effect`'s region that the finishing steps work in, in rows of the output.
PixelRegion finishingRegion(const VxDsEffect& effect);

/// The field that a processor which skips rows is told; 0 is all rows.
std::int32_t fieldOf(const VxDsEffect& effect);

extern template void fixChannelMask(VxDsEffect&, VxTexture<Rgba8>&, VxTexture<Rgba8>&,
                                    const ChannelMask&);
extern template void fixChannelMask(VxDsEffect&, VxTexture<RgbaS214>&, VxTexture<RgbaS214>&,
                                    const ChannelMask&);

}  // namespace ruvex
