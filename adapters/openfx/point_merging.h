// Fewer points for the same curve.

#pragma once

#include <span>
#include <vector>

#include "adapters/openfx/curve_sampling.h"

namespace ruvex::openfx {

/// Whether two values differ by no more than rounding: some hosts keep values as floats, which have
/// 24 bits. Values below 1 are compared as parts of 1.
bool nearlyEqual(double a, double b);

/// Whether all points lie on the line from `begin` to `end`, which are at different frames.
bool isLinear(const FrameKey& begin, const FrameKey& end, std::span<const FrameKey> between);

/// Leaves out points that lie on the line between those that are kept. The first and the last one
/// are kept. The points are in ascending order of their frames, without two at one frame.
std::vector<FrameKey> mergePoints(std::span<const FrameKey> points);

}  // namespace ruvex::openfx
