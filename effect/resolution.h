// Reduced resolution: the picture is scaled down before the television and up after it.

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
    VxTexture<P> result;  ///< the television's output; its edge method is kEdgeHold
};

/// Allocates both at `res` (below 1) times the render size. If memory runs out, the buffers have no
/// pixels; processors report that, and the frame continues.
template <class P>
void allocateScaled(ScaledBuffers<P>& buffers, const VxTexture<P>& input, const FrameScale& scale,
                    float res);

/// Scales `from` by `factor` into `to` with nearest-neighbour sampling. `region` is a region of
/// `to`.
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
