// When a frame is, in every form that its arithmetic takes.

#pragma once

namespace ruvex {

/// Made once a frame. The host gives the rate in double precision; frame numbers and the moments of
/// walks are worked out with the rate in single precision, and pictures depend on which is used.
struct FrameTime {
    double seconds;   ///< time of the frame in the output
    double hostRate;  ///< frames per second as the host gives them, for the steps of integrals
    float rate;       ///< the same narrowed, for frame numbers and moments
    float frame;      ///< number of the frame in the output; whole but for rounding

    FrameTime(double time, double framesPerSecond)
        : seconds(time),
          hostRate(framesPerSecond),
          rate(static_cast<float>(framesPerSecond)),
          frame(static_cast<float>(rate * time)) {}
};

}  // namespace ruvex
