// Views of host images as textures, without copying pixels.

#pragma once

#include <cstdint>

#include "effect/frame_host.h"
#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"
#include "sdk/com/com_ptr.h"

namespace ruvex {

/// The properties of a view of an image.
struct ImageView {
    std::int32_t offsetX = 0;  ///< becomes the texture's origin
    std::int32_t offsetY = 0;
    bool useCrop = false;     ///< the crop applies to this kind of image
    bool cropAllowed = true;  ///< and is wanted in this frame
    bool flipRows = false;    ///< row 0 of the texture is the image's last row
};

/// Makes `texture` a view of `image`, or of every second row if the effect renders fields as images
/// of half height. `texture` becomes empty if the image is null, not ready, or of another pixel
/// format. Channel8 is for paint masks, which have no crop.
template <class P>
void textureFromImage(const VxDsEffect& effect, VxTexture<P>& texture, IDSImage* image,
                      const ImageView& view);

/// Requests input `inputIndex` (-1 means 0) at another time from the host and makes `texture` a
/// view of it, valid during the lifetime of the returned image. If the host refuses, returns null
/// and does not change `texture`.
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
