// Curves of a host, turned into keys of the effect.

#pragma once

#include <vector>

#include "looks/parameter_change.h"

namespace ruvex::openfx {

/// A value over time, as a host answers for it. Times are frames of the effect.
struct HostCurve {
    virtual ~HostCurve() = default;

    /// Finite.
    virtual double valueAt(double frame) const = 0;
};

/// A key, or a point of a curve, at a frame of the effect.
struct FrameKey {
    double frame = 0.0;
    double value = 0.0;
    looks::KeyMode mode = looks::KeyMode::Linear;

    friend bool operator==(const FrameKey&, const FrameKey&) = default;
};

/// Keys that give the curve's values at each whole frame from `first` to `last`, and at `last`:
/// frames of the effect, `first` not above `last`. The effect walks back over values at earlier
/// frames, so it needs a curve and not one value.
///
/// `keyFrames` are the frames of the host's keys in ascending order. Between two of them the curve
/// becomes one segment where it is linear or constant, and else a chain of linear ones. Before the
/// first and after the last key, and everywhere in a curve without keys, the same is done from
/// `first` to `last`. Values that differ by rounding of floats count as equal.
///
/// From 16384 frames between two keys on, counted from `first` or from a key after it, only every
/// second frame is read, then every fourth from twice that number on, and so on; values between
/// them are interpolated. The frames that are read do not depend on `last`, so that values at
/// earlier frames do not change as it moves on; but where no key follows, the values since the last
/// frame that was read do.
///
/// One key means a constant.
std::vector<FrameKey> sampleCurve(const HostCurve& curve, const std::vector<double>& keyFrames,
                                  double first, double last);

/// The same as a change of a parameter, its keys in seconds. `rate` is in frames per second.
looks::ParameterChange changeOf(ParameterId id, const std::vector<FrameKey>& keys, double rate);

}  // namespace ruvex::openfx
