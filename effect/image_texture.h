// Host images as textures, without a copy.

#pragma once

#include <cstdint>

#include "effect/frame_host.h"
#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"
#include "sdk/com/com_ptr.h"

namespace ruvex {

/// How an image is wrapped.
struct ImageView {
    std::int32_t offsetX = 0;  ///< becomes the texture's origin
    std::int32_t offsetY = 0;
    bool useCrop = false;     ///< this kind of image has a crop window
    bool cropAllowed = true;  ///< and this frame wants it
    bool flipRows = false;    ///< row 0 of the texture is the image's last row
};

/// Makes `texture` a view of `image`: of every second row of it where the effect renders fields as
/// images of half height. Empty for an image that is null, not ready, or of another pixel format.
/// Channel8 is the pixel of a paint mask, which has no crop.
template <class P>
void textureFromImage(const VxDsEffect& effect, VxTexture<P>& texture, IDSImage* image,
                      const ImageView& view);

/// Asks the host for input `inputIndex` (-1 is 0) at another time and wraps it. The texture is good
/// as long as the image that is returned; null, and an untouched texture, when the host refuses.
template <class P>
ComPtr<IDSImage> fetchInputFrame(const VxDsEffect& effect, const FrameHost& host,
                                 VxTexture<P>& texture, double seconds, bool cropAllowed,
                                 std::int32_t inputIndex);

extern template void textureFromImage(const VxDsEffect&, VxTexture<Rgba8>&, IDSImage*,
                                      const ImageView&);
extern template void textureFromImage(const VxDsEffect&, VxTexture<RgbaS214>&, IDSImage*,
                                      const ImageView&);
extern template void textureFromImage(const VxDsEffect&, VxTexture<Channel8>&, IDSImage*,
                                      const ImageView&);
extern template ComPtr<IDSImage> fetchInputFrame(const VxDsEffect&, const FrameHost&,
                                                 VxTexture<Rgba8>&, double, bool, std::int32_t);
extern template ComPtr<IDSImage> fetchInputFrame(const VxDsEffect&, const FrameHost&,
                                                 VxTexture<RgbaS214>&, double, bool, std::int32_t);

}  // namespace ruvex
