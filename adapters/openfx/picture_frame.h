// The whole picture of which a host renders a part.

#pragma once

#include <optional>

#include "adapters/openfx/properties.h"
#include "adapters/openfx/regions.h"

namespace ruvex::openfx {

/// What is known of a picture. `region` is in canonical coordinates.
struct KnownPicture {
    std::optional<OfxRectD> region;
    double pixelAspect = 1.0;
    OfxPointD renderScale{1.0, 1.0};
    adapters::PixelRect bounds;  ///< Of the image at hand.
};

/// The picture in pixels at the render scale: its region, or else the bounds of the image.
///
/// Images have a region of definition of their own, in whole pixels, as the host rounds it. Hosts
/// differ there: in some it is missing, in some it is that of the scale 1, in some it is the
/// bounds. So it counts where it agrees with the region but for rounding, and the region elsewhere.
adapters::PixelRect pictureFrame(const KnownPicture& picture,
                                 const std::optional<OfxRectI>& ofImage);

/// The picture in pixels at a scale of 1.
adapters::PixelRect fullPicture(const KnownPicture& picture);

}  // namespace ruvex::openfx
