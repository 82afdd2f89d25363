#include "effect/frame_scale.h"

#include "host/base/picture_geometry.h"
#include "imaging/pixel_convert.h"
#include "sdk/effect/content.h"

namespace ruvex {
namespace {

// pixels / size in single precision; 0 if the size is 0 (unknown) or NaN.
float pixelsPer(float pixels, double size) {
    return size > 0.0 || size < 0.0 ? static_cast<float>(pixels / size) : 0.0f;
}

float wholePixels(double size) {
    return static_cast<float>(truncateToInt(size));
}

// Scales the project size to the rendered size: the ratio of one world point's two conversions.
void scaleToRender(IDSCoordMan& coordMan, FrameScale& scale) {
    double imageX = 0.0, imageY = 0.0, projectX = 0.0, projectY = 0.0;
    if (FAILED(coordMan.WorldToImage(1.0, 1.0, &imageX, &imageY)) ||
        FAILED(coordMan.WorldToProject(1.0, 1.0, &projectX, &projectY))) {
        return;
    }
    scale.pixelsX = static_cast<float>(scale.pixelsX * (imageX / projectX));
    scale.pixelsY = static_cast<float>(scale.pixelsY * (imageY / projectY));
}

}  // namespace

FrameScale frameScale(const FrameHost& host) {
    const double userX = projectSize(kDSProjectUserSizeX);
    const double userY = projectSize(kDSProjectUserSizeY);
    const double aspect = projectAspect();

    FrameScale scale;
    scale.pixelsX = wholePixels(userX);
    scale.pixelsY = wholePixels(userY);
    if (host.coordMan) scaleToRender(*host.coordMan, scale);

    scale.scaleY = pixelsPer(scale.pixelsY, userY);
    scale.scaleX = pixelsPer(scale.pixelsX, aspect * userX);
    scale.pixelAspect = scale.scaleX != 0.0f ? scale.scaleY / scale.scaleX : 0.0f;
    scale.scaleMean = (scale.scaleX + scale.scaleY) * 0.5f;
    return scale;
}

}  // namespace ruvex
