// The one image type: a rectangle of pixels in memory, owned or borrowed, with an index model that
// says what is read outside it.

#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/buffer.h"
#include "imaging/pixel.h"
#include "imaging/tex_indexer.h"

namespace ruvex {

/// An image of storage pixel P whose interpolated samples are of companion pixel C.
///
/// Row r, column c of the buffer lies at `data` + r * `stride` + c * sizeof(P); `stride` may be
/// negative. Nothing is implied about which way up the rows are. Pixel (i, j) has its centre at
/// (i + 0.5, j + 0.5). A texture has no locks: threads may read one together, and write disjoint
/// rows of it; its geometry is set before a processor starts.
template <class P, class C = Companion<P>>
class VxTexture : public VxTexIndexer {
public:
    using Pixel = P;
    using Sample = C;

    VxTexture() = default;
    VxTexture(const VxTexture&) = delete;
    VxTexture& operator=(const VxTexture&) = delete;
    ~VxTexture() override;

    /// Becomes a borrowed view of `other`'s pixels with its index model and fill, which may then be
    /// changed without touching `other`. Does nothing if both share their pixels already.
    virtual void refer(const VxTexture& other);

    /// Sets the pixel that is read where edge method 0 leaves none.
    virtual void setFill(const P& pixel);

    /// Interpolated sample at the centre of the area between two corners. There is no averaging
    /// over the area. Corners are double, so that the centre of a wide area is still exact.
    virtual void sampleBetween(C& result, double x0, double y0, double x1, double y1) const;

    /// sampleBetween of the area that reaches dx, dy to both sides of (x, y).
    virtual void sampleBox(C& result, float x, float y, float dx, float dy) const;

    /// Allocates a buffer for the present sizes, releasing an owned one. A size of 0 leaves `data`
    /// null; a failure, or an image of 2 GB or more, sets `allocationFailed` too.
    void allocate(Contents contents = Contents::Undefined);

    /// Allocates a buffer for the window of image space between two inclusive corners, to be
    /// addressed with image-space coordinates.
    void allocateRegion(std::int32_t x0, std::int32_t y0, std::int32_t x1, std::int32_t y1,
                        Contents contents = Contents::Undefined);

    /// Borrows `width` by `height` pixels at `pointer`, which must outlive the view.
    void wrap(std::int32_t width, std::int32_t height, void* pointer);

    /// Releases what is owned and becomes empty. Edge methods and origins stay.
    void clear();

    /// Takes over `other`'s geometry and fill with a buffer of its own; pixels are not copied.
    void cloneLayout(const VxTexture& other, Contents contents = Contents::Undefined);

    /// The same for a bare layout, such as a padded one. The fill stays.
    void allocateLayout(const VxTexIndexer& layout, Contents contents = Contents::Undefined);

    /// The pixel to read for image-space (x, y), or null if there is none.
    const P* pixelAt(std::int32_t px, std::int32_t py) const;

    /// Interpolated sample at (x, y); the fill pixel where both neighbours on an axis are missing.
    void sample(C& result, float px, float py) const;

    /// Whether a processor can write here: both sizes above 0 and pixels behind them.
    bool usable() const { return x.size >= 1 && y.size >= 1 && data != nullptr; }

    /// The first pixel of buffer row `row`.
    P* bufferRow(std::int32_t row) {
        return reinterpret_cast<P*>(data + std::ptrdiff_t{row} * stride);
    }
    const P* bufferRow(std::int32_t row) const {
        return reinterpret_cast<const P*>(data + std::ptrdiff_t{row} * stride);
    }

    /// The address for writing image-space point (px, py), which must lie inside the buffer.
    P* writeAt(std::int32_t px, std::int32_t py) {
        return bufferRow(py - y.offset) + (px - x.offset);
    }

    std::int32_t owned = 0;             ///< the buffer is released with this object
    std::byte* data = nullptr;          ///< buffer pixel (0, 0)
    std::int32_t allocationFailed = 0;  ///< the last allocation gave nothing
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
