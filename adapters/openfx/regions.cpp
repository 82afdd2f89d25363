#include "adapters/openfx/regions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ruvex::openfx {
namespace {

using adapters::PixelRect;

double saneFactor(double factor) {
    constexpr double kLeast = 1e-3, kGreatest = 1e3;
    return factor >= kLeast && factor <= kGreatest ? factor : 1.0;
}

/// False for NaN, too.
bool isCoordinate(double value) {
    return std::abs(value) <= kGreatestCoordinate;
}

bool isCoordinate(int value) {
    return value >= -kGreatestCoordinate && value <= kGreatestCoordinate;
}

}  // namespace

double saneAspect(double pixelAspect) {
    return saneFactor(pixelAspect);
}

PixelScale pixelScale(OfxPointD renderScale, double pixelAspect) {
    return {saneFactor(renderScale.x) / saneAspect(pixelAspect), saneFactor(renderScale.y)};
}

std::optional<PixelRect> pixelsOf(const OfxRectD& canonical, PixelScale scale) {
    constexpr double kMargin = 0.01;
    const double x1 = canonical.x1 * scale.x, y1 = canonical.y1 * scale.y;
    const double x2 = canonical.x2 * scale.x, y2 = canonical.y2 * scale.y;
    if (!isCoordinate(x1) || !isCoordinate(y1) || !isCoordinate(x2) || !isCoordinate(y2)) return {};
    const PixelRect pixels{
        static_cast<int>(std::floor(x1 + kMargin)), static_cast<int>(std::floor(y1 + kMargin)),
        static_cast<int>(std::ceil(x2 - kMargin)), static_cast<int>(std::ceil(y2 - kMargin))};
    if (pixels.empty()) return {};
    return pixels;
}

OfxRectD canonicalOf(const PixelRect& pixels, PixelScale scale) {
    return {pixels.x1 / scale.x, pixels.y1 / scale.y, pixels.x2 / scale.x, pixels.y2 / scale.y};
}

std::optional<PixelRect> sanePixels(const OfxRectI& rectangle) {
    const auto [x1, y1, x2, y2] = rectangle;
    if (!isCoordinate(x1) || !isCoordinate(y1) || !isCoordinate(x2) || !isCoordinate(y2)) return {};
    const PixelRect pixels{x1, y1, x2, y2};
    if (pixels.empty()) return {};
    return pixels;
}

bool agree(const PixelRect& a, const PixelRect& b) {
    const auto near = [](int one, int other) { return std::abs(one - other) <= 1; };
    return near(a.x1, b.x1) && near(a.y1, b.y1) && near(a.x2, b.x2) && near(a.y2, b.y2);
}

}  // namespace ruvex::openfx
