// Walking back over the frames of the time line.

#pragma once

#include <vector>

namespace ruvex {

/// Below this the walk has arrived at the first frame.
inline constexpr double kFirstFrame = 0.01;

/// Whether a walk goes on at `frame`. Frame numbers are single precision; one so large that
/// subtracting 1 no longer changes it ends the walk.
inline bool walksOn(float frame) {
    return frame > kFirstFrame && frame - 1.0f != frame;
}

/// The moments, in seconds, of `frame`, `frame` - 1, ... down to the first one, latest first.
inline std::vector<float> momentsBack(float frame, float frameRate) {
    std::vector<float> moments;
    if (walksOn(frame)) moments.reserve(static_cast<std::size_t>(frame) + 1);
    for (; walksOn(frame); frame -= 1.0f) moments.push_back(frame / frameRate);
    return moments;
}

}  // namespace ruvex
