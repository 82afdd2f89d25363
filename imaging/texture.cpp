#include "imaging/texture.h"

#include "imaging/interpolate.h"
#include "imaging/maths/wrap.h"

namespace ruvex {

template <class P, class C>
VxTexture<P, C>::~VxTexture() {
    release();
}

template <class P, class C>
void VxTexture<P, C>::release() {
    if (owned) releaseBuffer(data);
    data = nullptr;
}

template <class P, class C>
void VxTexture<P, C>::refer(const VxTexture& other) {
    if (&other == this || data == other.data) return;
    clear();
    x = other.x;
    y = other.y;
    data = other.data;
    owned = 0;
    setFill(other.fill);
    stride = other.stride;
}

template <class P, class C>
void VxTexture<P, C>::setFill(const P& pixel) {
    fill = pixel;
}

template <class P, class C>
void VxTexture<P, C>::sampleBetween(C& result, double x0, double y0, double x1, double y1) const {
    sample(result, static_cast<float>((x0 + x1) * 0.5), static_cast<float>((y0 + y1) * 0.5));
}

template <class P, class C>
void VxTexture<P, C>::sampleBox(C& result, float px, float py, float dx, float dy) const {
    sampleBetween(result, double{px} - dx, double{py} - dy, double{px} + dx, double{py} + dy);
}

template <class P, class C>
void VxTexture<P, C>::allocate(Contents contents) {
    release();
    allocationFailed = 0;
    owned = 1;
    if (x.size == 0 || y.size == 0) return;
    const std::int32_t bytes = imageBytes(x.size, y.size, sizeof(P));
    data = allocateBuffer(bytes, contents);
    allocationFailed = data == nullptr;
    stride = data ? x.size * static_cast<std::int32_t>(sizeof(P)) : 0;
}

template <class P, class C>
void VxTexture<P, C>::allocateRegion(std::int32_t x0, std::int32_t y0, std::int32_t x1,
                                     std::int32_t y1, Contents contents) {
    clear();
    x.setSize(saturate(std::int64_t{x1} - x0 + 1));
    y.setSize(saturate(std::int64_t{y1} - y0 + 1));
    allocate(contents);
    setOrigin(static_cast<float>(x0), static_cast<float>(y0));
    x.offset = x0;
    y.offset = y0;
}

template <class P, class C>
void VxTexture<P, C>::wrap(std::int32_t width, std::int32_t height, void* pointer) {
    release();
    x.setSize(width);
    y.setSize(height);
    setRange(0, width, 0, height);
    data = static_cast<std::byte*>(pointer);
    owned = 0;
    stride = wrapMultiply(width, sizeof(P));
}

template <class P, class C>
void VxTexture<P, C>::clear() {
    release();
    x.setSize(0);
    y.setSize(0);
    setRange(0, 0, 0, 0);
    stride = 0;
}

template <class P, class C>
void VxTexture<P, C>::cloneLayout(const VxTexture& other, Contents contents) {
    fill = other.fill;
    allocateLayout(other, contents);
}

template <class P, class C>
void VxTexture<P, C>::allocateLayout(const VxTexIndexer& layout, Contents contents) {
    clear();
    x = layout.x;
    y = layout.y;
    allocate(contents);
}

template <class P, class C>
void VxTexture<P, C>::placeLayout(const VxTexIndexer& layout, std::byte* pixels) {
    clear();
    x = layout.x;
    y = layout.y;
    data = pixels;
    owned = 0;
    stride = pixels ? x.size * static_cast<std::int32_t>(sizeof(P)) : 0;
}

template <class P, class C>
const P* VxTexture<P, C>::pixelAt(std::int32_t px, std::int32_t py) const {
    const std::int32_t column = x.mapIndex(wrapSubtract(px, x.origin));
    const std::int32_t row = y.mapIndex(wrapSubtract(py, y.origin));
    if (column == kNoPixel || row == kNoPixel || !data) return nullptr;
    return bufferRow(row) + column;
}

template <class P, class C>
void VxTexture<P, C>::sample(C& result, float px, float py) const {
    result = interpolate<P, C>(fill, axisSample(x, px), sampleRows(*this, axisSample(y, py)));
}

template class VxTexture<Rgba8>;
template class VxTexture<RgbaS214>;
template class VxTexture<RgbaInt>;
template class VxTexture<RgbaFloat>;
template class VxTexture<Channel8>;
template class VxTexture<ChannelS214>;
template class VxTexture<ChannelInt>;
template class VxTexture<std::int32_t>;

}  // namespace ruvex
