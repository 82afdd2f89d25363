#include "host/base/picture_geometry.h"

#include <optional>

#include "sdk/effect/content.h"

namespace ruvex {
namespace {

std::optional<double> contentProperty(const wchar_t* name) {
    VARIANT value{};
    if (FAILED(DSContentGetProperty(name, &value)) || value.vt != VT_R8) return std::nullopt;
    return value.dblVal;
}

DSFloatPair scaled(DSFloatPair pair, double factor) {
    return {static_cast<float>(pair.x * factor), static_cast<float>(pair.y * factor)};
}

}  // namespace

double projectSize(const wchar_t* name) {
    return contentProperty(name).value_or(0.0);
}

double projectAspect() {
    const auto user = contentProperty(kDSProjectUserSizeY);
    const auto world = contentProperty(kDSProjectWorldSizeY);
    return user && world ? *user / *world : 1.0;
}

double projectWorldScale() {
    const bool widthsKnown =
        contentProperty(kDSProjectUserSizeX) && contentProperty(kDSProjectWorldSizeX);
    const auto user = contentProperty(kDSProjectUserSizeY);
    const auto world = contentProperty(kDSProjectWorldSizeY);
    return widthsKnown && user && world ? *user / *world : 0.0;
}

PictureGeometry pictureGeometry(IDSImage* image, IDSCoordMan* coordMan) {
    PictureGeometry geometry;
    if (!image) return geometry;
    const double scale = projectWorldScale();
    DSFloatPair size{};
    DSFloatPair origin{};
    image->GetWorldSize(&size);
    image->GetWorldOrigin(&origin);
    geometry.size = scaled(size, scale);
    geometry.origin = scaled(origin, scale);
    LONG x = 0;
    LONG y = 0;
    if (coordMan && SUCCEEDED(coordMan->ImageToPixels(geometry.origin, geometry.size, &x, &y))) {
        geometry.offsetX = x;
        geometry.offsetY = y;
    }
    return geometry;
}

}  // namespace ruvex
