// The extent of points in the plane.

#pragma once

#include <cfloat>

#include "overlay/vx_message.h"

namespace ruvex {

/// Lowest x, highest x, lowest y, highest y.
using VxExtent = float[4];

/// Makes an extent that contains no point: the lowest are FLT_MAX and the highest -FLT_MAX.
inline void makeEmpty(VxExtent& extent) {
    extent[0] = extent[2] = FLT_MAX;
    extent[1] = extent[3] = -FLT_MAX;
}

/// Widens an extent so that it contains this point.
inline void includePoint(VxExtent& extent, float x, float y) {
    if (x < extent[0]) extent[0] = x;
    if (x > extent[1]) extent[1] = x;
    if (y < extent[2]) extent[2] = y;
    if (y > extent[3]) extent[3] = y;
}

/// Widens an extent so that it contains the corner of a rectangle and the opposite one.
inline void includeRectangle(VxExtent& extent, VxPosition corner, VxPosition size) {
    includePoint(extent, corner.x, corner.y);
    includePoint(extent, corner.x + size.x, corner.y + size.y);
}

}  // namespace ruvex
