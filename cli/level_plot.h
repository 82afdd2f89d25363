// The level over time, with the thresholds of the stages, as a picture.

#pragma once

#include <string>
#include <vector>

#include "parameters/parameter_id.h"
#include "parameters/ruvex_interface.h"
#include "runtime/effect_session.h"

namespace ruvex::cli {

/// Where a stage begins to act, at each frame of a series.
struct ThresholdCurve {
    ParameterId id;
    std::vector<double> percent;  ///< 0 to 100, one a frame

    bool constant() const;
};

/// The thresholds of all stages at the times of the series, as the render takes them.
std::vector<ThresholdCurve> thresholdCurves(const runtime::EffectSession& session,
                                            const std::vector<FrameValues>& series);

/// The plot as SVG: frames below, seconds above, one labelled line a threshold. `series` holds
/// consecutive frames, at least one, and each curve as many values.
std::string levelPlot(const std::vector<FrameValues>& series,
                      const std::vector<ThresholdCurve>& thresholds, double framesPerSecond);

}  // namespace ruvex::cli
