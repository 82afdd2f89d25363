// The images and interfaces that the host has set for one frame.

#pragma once

#include "sdk/effect/coord_man.h"
#include "sdk/effect/effect_host.h"
#include "sdk/images/image.h"

namespace ruvex {

/// Owns nothing; valid during an Execute. Every pointer may be null, except `output` of a frame
/// that is rendered.
struct FrameHost {
    IDSImage* input = nullptr;
    IDSImage* output = nullptr;
    IDSImage* pixelMask = nullptr;
    std::int32_t maskOffsetX = 0;  ///< offset of the mask in the input, pixels
    std::int32_t maskOffsetY = 0;
    IDSCoordMan* coordMan = nullptr;
    IDSEffectHost* effectHost = nullptr;
    IUnknown* executeContext = nullptr;
    double sampleRate = 0.0;  ///< frames per second
    bool roiSet = false;      ///< only the effect's region is to be rendered
};

}  // namespace ruvex
