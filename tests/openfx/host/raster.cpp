#include "tests/openfx/host/raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "tests/openfx/host/whole_number.h"

namespace ruvex::ofxhost {

std::size_t PixelFormat::sampleBytes() const {
    if (depth == kOfxBitDepthByte) return 1;
    if (depth == kOfxBitDepthShort || depth == kOfxBitDepthHalf) return 2;
    return depth == kOfxBitDepthFloat ? 4 : 0;
}

std::size_t PixelFormat::sampleCount() const {
    if (components == kOfxImageComponentRGBA) return 4;
    if (components == kOfxImageComponentRGB) return 3;
    return components == kOfxImageComponentAlpha ? 1 : 0;
}

OfxRectI intersection(const OfxRectI& a, const OfxRectI& b) {
    const OfxRectI both{std::max(a.x1, b.x1), std::max(a.y1, b.y1), std::min(a.x2, b.x2),
                        std::min(a.y2, b.y2)};
    return isEmpty(both) ? OfxRectI{} : both;
}

OfxRectI pixelsOf(const OfxRectD& rect, const OfxPointD& scale, double pixelAspect) {
    const double x = scale.x / pixelAspect;
    return {wholeNumber(rect.x1 * x), wholeNumber(rect.y1 * scale.y),
            wholeNumber(std::ceil(rect.x2 * x)), wholeNumber(std::ceil(rect.y2 * scale.y))};
}

Raster::Raster(const OfxRectI& rasterBounds, PixelFormat rasterFormat)
    : bounds(rasterBounds), format(std::move(rasterFormat)) {
    bytes.resize(rowBytes() * static_cast<std::size_t>(heightOf(bounds)));
}

Raster Raster::part(const OfxRectI& rect) const {
    Raster result(rect, format);
    const auto skipped = static_cast<std::size_t>(rect.x1 - bounds.x1) * format.pixelBytes();
    for (int y = rect.y1; y < rect.y2; ++y) {
        std::memcpy(result.row(y), row(y) + skipped, result.rowBytes());
    }
    return result;
}

}  // namespace ruvex::ofxhost
