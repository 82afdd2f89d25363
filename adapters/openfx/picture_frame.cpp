#include "adapters/openfx/picture_frame.h"

#include <algorithm>
#include <cmath>

namespace ruvex::openfx {
namespace {

using adapters::PixelRect;

std::optional<PixelRect> regionAt(const KnownPicture& picture, OfxPointD scale) {
    if (!picture.region) return {};
    return pixelsOf(*picture.region, pixelScale(scale, picture.pixelAspect));
}

int unscaled(int pixels, double scale) {
    const double full = std::round(pixels / scale);
    return static_cast<int>(std::clamp(full, 1.0, static_cast<double>(kGreatestCoordinate)));
}

}  // namespace

PixelRect pictureFrame(const KnownPicture& picture, const std::optional<OfxRectI>& ofImage) {
    const auto region = regionAt(picture, picture.renderScale);
    if (!region) return picture.bounds;
    const auto rounded = ofImage ? sanePixels(*ofImage) : std::nullopt;
    return rounded && agree(*rounded, *region) ? *rounded : *region;
}

PixelRect fullPicture(const KnownPicture& picture) {
    if (const auto region = regionAt(picture, {1.0, 1.0})) return *region;
    const PixelScale scale = pixelScale(picture.renderScale, 1.0);
    return {0, 0, unscaled(picture.bounds.width(), scale.x),
            unscaled(picture.bounds.height(), scale.y)};
}

}  // namespace ruvex::openfx
