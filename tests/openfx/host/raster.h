// Pictures as the host keeps them.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::ofxhost {

/// Texts of the interface: kOfxBitDepthByte, kOfxImageComponentRGBA, kOfxImageUnPreMultiplied.
struct PixelFormat {
    std::string depth = kOfxBitDepthByte;
    std::string components = kOfxImageComponentRGBA;
    std::string premultiplication = kOfxImageUnPreMultiplied;

    /// 0 for a depth or components that are not known.
    std::size_t sampleBytes() const;
    std::size_t sampleCount() const;
    std::size_t pixelBytes() const { return sampleBytes() * sampleCount(); }

    friend bool operator==(const PixelFormat&, const PixelFormat&) = default;
};

inline int widthOf(const OfxRectI& rect) {
    return rect.x2 - rect.x1;
}
inline int heightOf(const OfxRectI& rect) {
    return rect.y2 - rect.y1;
}
inline bool isEmpty(const OfxRectI& rect) {
    return rect.x1 >= rect.x2 || rect.y1 >= rect.y2;
}
/// The part that both have; (0, 0, 0, 0) if there is none.
OfxRectI intersection(const OfxRectI& a, const OfxRectI& b);
/// The pixels of a canonical rectangle: outwards to whole pixels.
OfxRectI pixelsOf(const OfxRectD& rect, const OfxPointD& scale, double pixelAspect);

/// Rows without padding, the bottom one first.
struct Raster {
    OfxRectI bounds{};
    PixelFormat format{};
    std::vector<std::byte> bytes{};

    /// A raster of zeros.
    Raster(const OfxRectI& bounds, PixelFormat format);
    Raster() = default;

    std::size_t rowBytes() const {
        return static_cast<std::size_t>(widthOf(bounds)) * format.pixelBytes();
    }
    std::byte* row(int y) { return bytes.data() + offset(y); }
    const std::byte* row(int y) const { return bytes.data() + offset(y); }
    /// The pixels of a part, which lies within the bounds.
    Raster part(const OfxRectI& rect) const;

private:
    std::size_t offset(int y) const { return static_cast<std::size_t>(y - bounds.y1) * rowBytes(); }
};

}  // namespace ruvex::ofxhost
