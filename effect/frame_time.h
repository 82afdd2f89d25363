// The time of a frame, and the times of the frames before it.

#pragma once

#include <cstddef>
#include <vector>

namespace ruvex {

/// Computed once per frame. The host gives the rate as a double. Frame numbers and the times in
/// walks are computed with the rate as a float; pictures depend on which one is used.
struct FrameTime {
    double seconds;    ///< time of the frame in the output
    double hostRate;   ///< frames per second, from the host; for the steps of integrals
    float singleRate;  ///< the same as a float; for frame numbers and times in walks
    float frame;       ///< number of the frame in the output; a whole number except for rounding

    FrameTime(double time, double framesPerSecond)
        : seconds(time),
          hostRate(framesPerSecond),
          singleRate(static_cast<float>(framesPerSecond)),
          frame(static_cast<float>(singleRate * time)) {}
};

/// A walk back over earlier frames ends at a frame number of this value or less.
inline constexpr double kWalkEnd = 0.01;

/// Whether a walk back continues at `frame`. Frame numbers are floats: the walk also ends at one so
/// large that subtracting 1 does not change it.
inline bool walksOn(float frame) {
    return frame > kWalkEnd && frame - 1.0f != frame;
}

/// The times in seconds of the frames `frame`, `frame` - 1, ... down to the first, latest first.
inline std::vector<float> momentsBack(float frame, float frameRate) {
    std::vector<float> moments;
    if (walksOn(frame)) moments.reserve(static_cast<std::size_t>(frame) + 1);
    for (; walksOn(frame); frame -= 1.0f) moments.push_back(frame / frameRate);
    return moments;
}

}  // namespace ruvex
