// How poor the signal is: one level, 0 to 1, for each moment.

#pragma once

#include <cstdint>
#include <vector>

#include "host/base/parameter_reader.h"

namespace ruvex {

/// The level over the time line of one frame's request. Nothing is kept from frame to frame.
class SignalLevel {
public:
    /// `sampleRate` in frames per second. `seed` shifts the wobble along its curve.
    SignalLevel(const ParameterReader& reader, double sampleRate, std::int32_t seed);

    /// The level of the frame at `time`. Its wobble runs on the play time, so that a paused tape
    /// holds its picture.
    float at(double time, double playTime) const;

    /// The levels of earlier moments, latest first, as a stage's memory sees them: each wobbles on
    /// its own time. One walk along the time line serves them all.
    std::vector<float> atEarlier(const std::vector<float>& moments) const;

private:
    float wobbled(float level, double variation, double phase) const;

    ParameterCurve master_;
    ParameterCurve variation_;
    ParameterCurve speed_;
    double sampleRate_;
    float seedOffset_;
};

}  // namespace ruvex
