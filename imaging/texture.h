// The image type: a rectangle of pixels in memory, owned or borrowed, and a layout that determines
// what is read outside it.

#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/buffer.h"
#include "imaging/pixel.h"
#include "imaging/tex_indexer.h"

namespace ruvex {

/// An image of storage pixel type P whose interpolated samples have companion type C.
///
/// Row r, column c of the buffer lies at `data` + r * `stride` + c * sizeof(P); `stride` may be
/// negative. Whether row 0 is at the top or at the bottom is up to the caller. The centre of pixel
/// (i, j) is (i + 0.5, j + 0.5). A texture has no locks: threads may read it concurrently and write
/// disjoint rows; its geometry must not change while a processor runs.
template <class P, class C = Companion<P>>
class VxTexture : public VxTexIndexer {
public:
    using Pixel = P;
    using Sample = C;

    VxTexture() = default;
    VxTexture(const VxTexture&) = delete;
    VxTexture& operator=(const VxTexture&) = delete;
    ~VxTexture() override;

    /// Becomes a view of `other`'s pixels, which must outlive it, with a copy of its layout and
    /// fill pixel; changing the copy does not change `other`. Does nothing if both share their
    /// pixels already.
    virtual void refer(const VxTexture& other);

    /// Sets the fill pixel, which is read where an edge method gives no pixel.
    virtual void setFill(const P& pixel);

    /// Interpolated sample at the centre of the area between two corners; the area is not averaged.
    /// The corners are doubles so that the centre of a large area is exact.
    virtual void sampleBetween(C& result, double x0, double y0, double x1, double y1) const;

    /// sampleBetween for the area from (x - dx, y - dy) to (x + dx, y + dy).
    virtual void sampleBox(C& result, float x, float y, float dx, float dy) const;

    /// Allocates a buffer for the current sizes and releases the previous one if owned. With a size
    /// of 0, `data` is null; if memory runs out, or an image would have 2 GB or more, `data` is
    /// null and `allocationFailed` is set.
    void allocate(Contents contents = Contents::Undefined);

    /// Allocates a buffer for the area of image space between two inclusive corners. Coordinates
    /// remain those of image space.
    void allocateRegion(std::int32_t x0, std::int32_t y0, std::int32_t x1, std::int32_t y1,
                        Contents contents = Contents::Undefined);

    /// Becomes a view of `width` by `height` pixels at `pointer`, which must outlive it.
    void wrap(std::int32_t width, std::int32_t height, void* pointer);

    /// Releases an owned buffer and becomes empty. Edge methods and origins are kept.
    void clear();

    /// Copies `other`'s geometry and fill pixel and allocates its own buffer; pixels are not
    /// copied.
    void cloneLayout(const VxTexture& other, Contents contents = Contents::Undefined);

    /// The same for a layout without pixels, such as a padded one. The fill pixel is kept.
    void allocateLayout(const VxTexIndexer& layout, Contents contents = Contents::Undefined);

    /// Becomes a view, with such a layout, of pixels that must outlive it. The fill pixel is kept.
    void placeLayout(const VxTexIndexer& layout, std::byte* pixels);

    /// The pixel to read at image-space (px, py) according to the edge methods, or null.
    const P* pixelAt(std::int32_t px, std::int32_t py) const;

    /// Interpolated sample at (px, py). The fill pixel if both neighbours on an axis are missing.
    void sample(C& result, float px, float py) const;

    /// Whether a processor can write to it: both sizes are above 0 and there is a buffer.
    bool usable() const { return x.size >= 1 && y.size >= 1 && data != nullptr; }

    /// The first pixel of buffer row `row`.
    P* bufferRow(std::int32_t row) {
        return reinterpret_cast<P*>(data + std::ptrdiff_t{row} * stride);
    }
    const P* bufferRow(std::int32_t row) const {
        return reinterpret_cast<const P*>(data + std::ptrdiff_t{row} * stride);
    }

    /// The address of image-space pixel (px, py) for writing. It must lie inside the buffer.
    P* writeAt(std::int32_t px, std::int32_t py) {
        return bufferRow(py - y.offset) + (px - x.offset);
    }

    std::int32_t owned = 0;             ///< nonzero: this object releases the buffer
    std::byte* data = nullptr;          ///< buffer pixel (0, 0)
    std::int32_t allocationFailed = 0;  ///< nonzero: the latest allocation failed
    P fill{};                           ///< see setFill
    std::int32_t stride = 0;            ///< bytes from one row to the next

private:
    void release();
};

extern template class VxTexture<Rgba8>;
extern template class VxTexture<RgbaS214>;
extern template class VxTexture<RgbaInt>;
extern template class VxTexture<RgbaFloat>;
extern template class VxTexture<Channel8>;
extern template class VxTexture<ChannelS214>;
extern template class VxTexture<ChannelInt>;
extern template class VxTexture<std::int32_t>;

}  // namespace ruvex
