// The signal level over a range of frames, and the thresholds that it is compared with.

#pragma once

#include <cstdint>
#include <optional>
#include <stop_token>
#include <vector>

#include "parameters/artefacts.h"
#include "parameters/ruvex_interface.h"
#include "runtime/effect_session.h"

namespace ruvex::looks {

/// The values behind frames `first` to `last` (both inclusive) at a rate in frames per second.
/// Empty if `stop` was requested before the last. Throws runtime::Error.
std::optional<std::vector<FrameValues>> levelSeries(const runtime::EffectSession& session,
                                                    std::int64_t first, std::int64_t last,
                                                    double rate, const std::stop_token& stop = {});

/// The threshold of an artefact at each frame of a series.
struct ThresholdCurve {
    const Artefact* artefact;
    std::vector<double> percent;  ///< 0 to 100, one value a frame

    /// Whether all values are the same.
    bool constant() const;
};

/// The thresholds of all artefacts, in the order of their table, at the times of the series,
/// clamped as the render clamps them.
std::vector<ThresholdCurve> thresholdCurves(const runtime::EffectSession& session,
                                            const std::vector<FrameValues>& series);

}  // namespace ruvex::looks
