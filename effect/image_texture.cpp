#include "effect/image_texture.h"

#include "host/base/crop.h"
#include "imaging/buffer.h"

namespace ruvex {
namespace {

template <class P>
struct HostFormat;
template <>
struct HostFormat<Rgba8> {
    static constexpr const GUID& kId = MFIF_RGBA_RAW_32;
};
template <>
struct HostFormat<RgbaS214> {
    static constexpr const GUID& kId = MFIF_RGBA_S2_14;
};
template <>
struct HostFormat<Channel8> {
    static constexpr const GUID& kId = MFIF_A_RAW_8;
};

struct ReadyImage {
    LONG width = 0;
    LONG height = 0;
    void* pixels = nullptr;
};

// The image's pixels and size; a null pointer if it is not ready or has another format.
ReadyImage readyImage(IDSImage* image, const GUID& format, std::int32_t pixelSize) {
    ReadyImage ready;
    GUID found{};
    if (!image || image->GetStatus() != S_OK || FAILED(image->GetFormat(&found))) return ready;
    if (found != format || FAILED(image->GetSize(&ready.width, &ready.height))) return ready;
    if (imageBytes(ready.width, ready.height, pixelSize) > 0) ready.pixels = image->GetPixels();
    return ready;
}

// Reduces the texture to the rows of one field: half the height, twice the stride.
template <class P>
void takeField(VxTexture<P>& texture, std::int32_t fieldSelector) {
    if (fieldSelector == 2) texture.data += texture.stride;
    texture.y.setSize(texture.y.size / 2);
    texture.stride *= 2;
}

template <class P>
void flip(VxTexture<P>& texture) {
    texture.data += static_cast<std::ptrdiff_t>(texture.y.size - 1) * texture.stride;
    texture.stride = -texture.stride;
}

}  // namespace

template <class P>
void textureFromImage(const VxDsEffect& effect, VxTexture<P>& texture, IDSImage* image,
                      const ImageView& view) {
    texture.clear();
    const ReadyImage ready = readyImage(image, HostFormat<P>::kId, sizeof(P));
    if (!ready.pixels) return;
    texture.wrap(ready.width, ready.height, ready.pixels);
    if (view.flipRows) flip(texture);
    std::int32_t offsetY = view.offsetY;
    if (effect.rendersHalfHeight()) {
        takeField(texture, effect.fieldSelector);
        offsetY /= 2;
    }
    texture.setOrigin(view.offsetX, offsetY);
    if constexpr (PixelTraits<P>::kComponents == 4) {
        if (view.useCrop && view.cropAllowed) applyCrop(effect, texture);
    }
}

template <class P>
ComPtr<IDSImage> fetchInputFrame(const VxDsEffect& effect, const FrameHost& host,
                                 VxTexture<P>& texture, double seconds, bool cropAllowed,
                                 std::int32_t inputIndex) {
    if (!host.effectHost) return nullptr;
    const ULONG index = inputIndex == -1 ? 0 : static_cast<ULONG>(inputIndex);
    ComPtr<IUnknown> frame;
    if (FAILED(host.effectHost->GetInputFrame(host.executeContext, index, seconds, frame.put()))) {
        return nullptr;
    }
    ComPtr<IDSImage> image = frame.query<IDSImage>(IID_IDSImage);
    if (!image) return nullptr;
    const PictureGeometry geometry = pictureGeometry(image.get(), host.coordMan);
    textureFromImage(effect, texture, image.get(),
                     {.offsetX = geometry.offsetX,
                      .offsetY = geometry.offsetY,
                      .useCrop = true,
                      .cropAllowed = cropAllowed});
    return image;
}

template void textureFromImage(const VxDsEffect&, VxTexture<Rgba8>&, IDSImage*, const ImageView&);
template void textureFromImage(const VxDsEffect&, VxTexture<RgbaS214>&, IDSImage*,
                               const ImageView&);
template void textureFromImage(const VxDsEffect&, VxTexture<Channel8>&, IDSImage*,
                               const ImageView&);
template ComPtr<IDSImage> fetchInputFrame(const VxDsEffect&, const FrameHost&, VxTexture<Rgba8>&,
                                          double, bool, std::int32_t);
template ComPtr<IDSImage> fetchInputFrame(const VxDsEffect&, const FrameHost&, VxTexture<RgbaS214>&,
                                          double, bool, std::int32_t);

}  // namespace ruvex
