// The signal level at any time: 0 is an undisturbed signal, 1 the worst.

#pragma once

#include <cstdint>
#include <vector>

#include "host/base/parameter_reader.h"

namespace ruvex {

/// Computes levels for one frame. No state is kept from frame to frame.
class SignalLevel {
public:
    /// `hostRate` in frames per second.
    SignalLevel(const ParameterReader& reader, double hostRate);

    /// The level of the frame at `seconds`. Its variation follows the play time, so that it does
    /// not vary while the tape is paused.
    float at(double seconds, double playTime) const;

    /// The same for many frames, of which entry i is at seconds[i] and playTimes[i], in one walk
    /// over the play time.
    std::vector<float> atAll(const std::vector<double>& seconds,
                             const std::vector<double>& playTimes) const;

    /// The levels at earlier times in seconds, latest first. Their variation follows these times
    /// and not the tape. All are computed in one walk over time.
    std::vector<float> atEarlier(const std::vector<float>& moments) const;

private:
    // `phase`, the integral of Breakup Speed, is computed only if the level varies.
    template <class Phase>
    float levelAt(double seconds, Phase phase) const;
    float varied(float level, double variation, double phase) const;

    ParameterCurve master_;
    ParameterCurve variation_;
    ParameterCurve speed_;
    double hostRate_;
    float seedOffset_;  // offset of the variation on its noise curve
};

}  // namespace ruvex
