// Rectangles of the host: canonical coordinates, and pixels at a scale.

#pragma once

#include <optional>

#include "adapters/common/host_picture.h"
#include "adapters/openfx/ofx_api.h"

namespace ruvex::openfx {

/// The greatest coordinate of a rectangle, in pixels. The effect renders pictures with sides up to
/// looks::kLongestProjectSide.
inline constexpr int kGreatestCoordinate = 1 << 24;

/// The number of pixels in a unit of canonical coordinates, on each axis. A canonical unit is as
/// wide as high; at a scale of 1 it is as high as a pixel.
struct PixelScale {
    double x = 1.0;
    double y = 1.0;
};

/// The scale of pixels that are `pixelAspect` times as wide as high. A scale or an aspect that is
/// not finite, or not from 1/1000 to 1000, counts as 1.
PixelScale pixelScale(OfxPointD renderScale, double pixelAspect);

/// The aspect, or 1 if it is none.
double saneAspect(double pixelAspect);

/// The smallest rectangle of whole pixels around a canonical one; a hundredth of a pixel is taken
/// for an error of rounding. Nothing for a rectangle that no picture has: an empty one, one with
/// infinite or NaN sides, one beyond kGreatestCoordinate.
std::optional<adapters::PixelRect> pixelsOf(const OfxRectD& canonical, PixelScale scale);

/// The canonical rectangle of some pixels.
OfxRectD canonicalOf(const adapters::PixelRect& pixels, PixelScale scale);

/// A rectangle in pixels; nothing for one that no picture has.
std::optional<adapters::PixelRect> sanePixels(const OfxRectI& rectangle);

/// Whether no side of one is further than a pixel from the same side of the other.
bool agree(const adapters::PixelRect& a, const adapters::PixelRect& b);

}  // namespace ruvex::openfx
