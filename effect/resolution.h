// Working at a reduced size: the picture is scaled down before the television and up after it.

#pragma once

#include <optional>

#include "effect/frame_scale.h"
#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"

namespace ruvex {

/// The two buffers of a frame at reduced size.
template <class P>
struct ScaledBuffers {
    VxTexture<P> source;  ///< the input at the work size, with its edge methods and crop window
    VxTexture<P> result;  ///< where the television draws; its edges repeat
};

/// Allocates both at `res` (below 1) times the render size. Memory that runs out leaves buffers
/// that processors refuse, and the frame goes on.
template <class P>
void allocateScaled(ScaledBuffers<P>& buffers, const VxTexture<P>& input, const FrameScale& scale,
                    float res);

/// Fills `to`, `factor` of the size of `from`, by the nearest pixels. `region` is of `to`.
template <class P>
void moveScaled(VxDsEffect& effect, VxTexture<P>& from, VxTexture<P>& to, float factor,
                const std::optional<PixelRegion>& region);

extern template void allocateScaled(ScaledBuffers<Rgba8>&, const VxTexture<Rgba8>&,
                                    const FrameScale&, float);
extern template void allocateScaled(ScaledBuffers<RgbaS214>&, const VxTexture<RgbaS214>&,
                                    const FrameScale&, float);
extern template void moveScaled(VxDsEffect&, VxTexture<Rgba8>&, VxTexture<Rgba8>&, float,
                                const std::optional<PixelRegion>&);
extern template void moveScaled(VxDsEffect&, VxTexture<RgbaS214>&, VxTexture<RgbaS214>&, float,
                                const std::optional<PixelRegion>&);

}  // namespace ruvex
