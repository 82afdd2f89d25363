// The level over time, with the thresholds of the stages, as a picture.

#pragma once

#include <string>
#include <vector>

#include "looks/level_series.h"

namespace ruvex::cli {

/// The plot as SVG: frames below, seconds above, one labelled line a threshold. `series` holds
/// consecutive frames, at least one, and each curve as many values.
std::string levelPlot(const std::vector<FrameValues>& series,
                      const std::vector<looks::ThresholdCurve>& thresholds, double framesPerSecond);

}  // namespace ruvex::cli
