// Integrals of animated parameters over time, stepped by frames.

#pragma once

#include "effect/walk_check.h"
#include "host/base/parameter_reader.h"

namespace ruvex {

/// The integral of a curve from `start` to several ends in rising order, in steps of one frame. The
/// time of each step is rounded to single precision, so that steps drift a little; pictures depend
/// on that. Each call of upTo continues where the previous one stopped. Ends early, with a result
/// that has no meaning, when the curve's frame is stopped.
class FrameIntegral {
public:
    /// `hostRate` in frames per second, times in seconds.
    FrameIntegral(const ParameterCurve& curve, double hostRate, double start);

    /// The integral up to `end`, which must not be before that of the previous call. 0 for an end
    /// before the start.
    double upTo(double end);

private:
    ParameterCurve curve_;
    double step_;
    float moment_;
    double next_;
    double sum_ = 0.0;
    WalkCheck check_;
};

/// The integral of a curve from `start` to `end`.
double integrateParameter(const ParameterCurve& curve, double hostRate, double start, double end);

}  // namespace ruvex
