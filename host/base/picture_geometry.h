// Position and size of a frame's pictures, in world units and in pixels.

#pragma once

#include <cstdint>

#include "sdk/effect/coord_man.h"
#include "sdk/images/image.h"

namespace ruvex {

/// One picture: its world size and world origin times projectWorldScale(), and the offset of its
/// first pixel in whole pixels of the rendered picture.
struct PictureGeometry {
    DSFloatPair size{};
    DSFloatPair origin{};
    std::int32_t offsetX = 0;
    std::int32_t offsetY = 0;

    friend bool operator==(const PictureGeometry&, const PictureGeometry&) = default;
};

/// The three pictures of one render.
struct FrameGeometry {
    PictureGeometry output;
    PictureGeometry input;
    PictureGeometry input2;

    friend bool operator==(const FrameGeometry&, const FrameGeometry&) = default;
};

/// The pixel aspect of the project: user size Y / world size Y. 1.0 if one of them can't be read.
double projectAspect();

/// The same quotient, as the scale factor of world units; 0.0 if any of the project's four sizes
/// can't be read.
double projectWorldScale();

/// A size of the project frame by name (see sdk/effect/content.h); 0 if it can't be read.
double projectSize(const wchar_t* name);

/// The geometry of an image. All 0 for a null image; offsets 0 without a coordinate manager.
PictureGeometry pictureGeometry(IDSImage* image, IDSCoordMan* coordMan);

}  // namespace ruvex
