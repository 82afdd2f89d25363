// Integrals of animated parameters over time, stepped by frames.

#pragma once

#include "host/base/parameter_reader.h"

namespace ruvex {

/// The integral of a curve from `start` to one end after another. Its steps are one frame long. The
/// moment at which a step begins is narrowed to single precision, so that steps drift a little;
/// pictures depend on that. Rising ends are reached by one walk, without starting anew.
class FrameIntegral {
public:
    /// `hostRate` in frames per second, times in seconds.
    FrameIntegral(const ParameterCurve& curve, double hostRate, double start);

    /// The integral up to `end`, which must not lie before the end that was asked for last. An end
    /// before the start gives 0.
    double upTo(double end);

private:
    ParameterCurve curve_;
    double step_;
    float moment_;
    double next_;
    double sum_ = 0.0;
};

/// The integral of a curve over start..end.
double integrateParameter(const ParameterCurve& curve, double hostRate, double start, double end);

}  // namespace ruvex
