// How poor the signal is: one level, 0 to 1, for each moment.

#pragma once

#include <cstdint>
#include <vector>

#include "host/base/parameter_reader.h"

namespace ruvex {

/// The level over the time line of one frame's request. Nothing is kept from frame to frame.
class SignalLevel {
public:
    /// `hostRate` in frames per second.
    SignalLevel(const ParameterReader& reader, double hostRate);

    /// The level of the frame at `seconds`. Its variation runs on the play time, so that a paused
    /// tape keeps its level.
    float at(double seconds, double playTime) const;

    /// The levels at earlier moments in seconds, latest first. Their variation runs on the moments
    /// themselves, whatever the tape does. One walk along the time line serves them all.
    std::vector<float> atEarlier(const std::vector<float>& moments) const;

private:
    float varied(float level, double variation, double phase) const;

    ParameterCurve master_;
    ParameterCurve variation_;
    ParameterCurve speed_;
    double hostRate_;
    float seedOffset_;  // moves the variation along its noise curve
};

}  // namespace ruvex
