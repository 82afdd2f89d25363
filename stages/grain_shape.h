// What becomes of noise before a picture gets it.

#pragma once

#include <cstdint>

namespace ruvex {

/// In raw units of the picture.
struct GrainShape {
    float low[4] = {};       ///< added to the noise of each component
    bool banded = false;     ///< there is a dead band: what lies inside is silent
    float cut = 0.0f;        ///< how far the band reaches to both sides of 0
    float stretch = 1.0f;    ///< what is left beyond the band is stretched by this
    std::uint32_t keep = 0;  ///< components that get none: bit 0 is red
};

}  // namespace ruvex
