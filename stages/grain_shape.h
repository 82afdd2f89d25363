// How noise is shaped before it is added to a picture.

#pragma once

#include <cstdint>

namespace ruvex {

/// In raw units of the picture.
struct GrainShape {
    float low[4] = {};       ///< added to the noise of each component
    bool banded = false;     ///< there is a dead band: noise inside it becomes 0
    float cut = 0.0f;        ///< how far the band reaches to both sides of 0
    float stretch = 1.0f;    ///< noise beyond the band is multiplied by this
    std::uint32_t keep = 0;  ///< components that get no noise: bit 0 is red
};

}  // namespace ruvex
