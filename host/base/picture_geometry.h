// Where the pictures of a frame lie, in the project's units and in pixels.

#pragma once

#include <cstdint>

#include "sdk/effect/coord_man.h"
#include "sdk/images/image.h"

namespace ruvex {

/// One picture: its size and origin in world units scaled to the project's height, and the place
/// of its first pixel in whole pixels of the picture being rendered.
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

/// The pixel aspect of the project: user size over world size, both in Y. 1.0 when one of the two
/// can't be read.
double projectAspect();

/// The same quotient as a scale of world units; 0.0 when any of the project's four sizes can't be
/// read.
double projectWorldScale();

/// A size of the project frame by name; 0 when it can't be read.
double projectSize(const wchar_t* name);

/// Geometry of an image; all 0 for a null image, offsets 0 without a coordinate manager.
PictureGeometry pictureGeometry(IDSImage* image, IDSCoordMan* coordMan);

}  // namespace ruvex
