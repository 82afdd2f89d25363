// The parameters of noise that is added to a picture: offset, dead band and components.

#pragma once

#include <cstdint>

namespace ruvex {

/// Values are raw values of the picture's pixel type.
struct GrainShape {
    float low[4] = {};       ///< added to the noise of each component
    bool banded = false;     ///< there is a dead band: noise from -cut to cut becomes 0
    float cut = 0.0f;        ///< half the width of the dead band
    float stretch = 1.0f;    ///< noise outside the band is multiplied by this
    std::uint32_t keep = 0;  ///< components without noise: bit 0 is red
};

}  // namespace ruvex
