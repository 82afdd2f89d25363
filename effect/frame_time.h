// When a frame is, and the moments of the frames before it.

#pragma once

#include <cstddef>
#include <vector>

namespace ruvex {

/// Made once a frame. The host gives the rate in double precision; frame numbers and the moments of
/// walks are worked out with the rate in single precision, and pictures depend on which is used.
struct FrameTime {
    double seconds;    ///< time of the frame in the output
    double hostRate;   ///< frames per second as the host gives them, for the steps of integrals
    float singleRate;  ///< the same narrowed, for frame numbers and moments
    float frame;       ///< number of the frame in the output; whole but for rounding

    FrameTime(double time, double framesPerSecond)
        : seconds(time),
          hostRate(framesPerSecond),
          singleRate(static_cast<float>(framesPerSecond)),
          frame(static_cast<float>(singleRate * time)) {}
};

/// A walk back over the frames ends at a frame number of this or below: frame 0, but for rounding.
inline constexpr double kWalkEnd = 0.01;

/// Whether a walk back goes on at `frame`. Frame numbers are single precision; one so large that
/// subtracting 1 no longer changes it ends the walk.
inline bool walksOn(float frame) {
    return frame > kWalkEnd && frame - 1.0f != frame;
}

/// The moments, in seconds, of `frame`, `frame` - 1, ... down to the first one, latest first.
inline std::vector<float> momentsBack(float frame, float frameRate) {
    std::vector<float> moments;
    if (walksOn(frame)) moments.reserve(static_cast<std::size_t>(frame) + 1);
    for (; walksOn(frame); frame -= 1.0f) moments.push_back(frame / frameRate);
    return moments;
}

}  // namespace ruvex
