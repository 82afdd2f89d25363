// Keys of looks in the host's time.

#pragma once

#include <span>
#include <vector>

#include "adapters/openfx/curve_sampling.h"
#include "adapters/openfx/effect_time.h"
#include "adapters/openfx/host_parameter.h"

namespace ruvex::openfx {

/// The keys of an animation at times of the host. A key whose value is held gets another one of the
/// same value a frame before the next, if there is room: the interface cannot say how a host goes
/// from one key to the next.
std::vector<FrameKey> hostKeys(const looks::Animation& animation, const EffectClock& clock);

struct ColourKey {
    double frame = 0.0;
    HostColour colour{};  ///< Channels from 0 to 1.
};

/// The keys of a colour whose channels change as given, red, green and blue: one at each time at
/// which a channel has one. One key means a constant.
std::vector<ColourKey> hostColours(std::span<const looks::ParameterChange> channels,
                                   const EffectClock& clock);

}  // namespace ruvex::openfx
