// Values and curves of the host as changes of the effect.

#pragma once

#include <vector>

#include "adapters/openfx/curve_sampling.h"
#include "adapters/openfx/effect_time.h"
#include "adapters/openfx/host_parameter.h"
#include "parameters/parameter_row.h"

namespace ruvex::openfx {

/// In place of the number of a channel: the parameter is a real.
inline constexpr int kNoChannel = -1;

/// Reads one real or colour for a frame. The parameter outlives the reader.
class ChangeReader {
public:
    ChangeReader(const HostParameter& parameter, double hostTime, const EffectClock& clock);

    /// The value at the time; or, if it changes with time, the curve from the effect's frame 0, or
    /// from the time if that is earlier, up to the time. `row` is that of the real, or of a channel
    /// (0 red, 1 green, 2 blue) of the colour.
    looks::ParameterChange read(const ParameterRow& row, int channel = kNoChannel) const;

private:
    std::vector<FrameKey> keysOf(const HostCurve& curve) const;

    const HostParameter& parameter_;
    EffectClock clock_;
    double frame_;
    bool animating_ = false;
    std::vector<double> keyFrames_;
};

}  // namespace ruvex::openfx
