// The scale factors of one frame: from pixels of the project frame to pixels of the render.

#pragma once

#include "effect/frame_host.h"

namespace ruvex {

/// Float members are rounded once, from a result in double.
struct FrameScale {
    float pixelsX = 0.0f;  ///< project size in pixels of the rendered picture
    float pixelsY = 0.0f;
    float scaleX = 0.0f;  ///< render pixels per pixel of the project frame
    float scaleY = 0.0f;
    float scaleMean = 0.0f;
    float pixelAspect = 0.0f;  ///< scaleY / scaleX; 0 if the project's size is unknown

    /// The pixel aspect for processors: at least 0.001, since they divide by it.
    float aspectMember() const { return pixelAspect > 0.001f ? pixelAspect : 0.001f; }
};

/// The scale factors are 0 if the project's size can't be read.
FrameScale frameScale(const FrameHost& host);

}  // namespace ruvex
