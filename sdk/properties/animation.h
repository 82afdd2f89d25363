// The animation of a real: key frames over time.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "sdk/com/com.h"

/// How the value goes from a key frame to the next one.
enum class DSKeyMode : std::uint32_t {
    Linear,  ///< Linear interpolation.
    Hold,    ///< The value stays that of the key frame until the next one.
    Smooth,  ///< A cubic with slope 0 at both key frames.
};

/// A key frame: at `time`, in seconds, the property has `value`. `mode` belongs to the segment that
/// begins here; that of the last key frame has no effect.
struct DSKey {
    double time;
    double value;
    DSKeyMode mode = DSKeyMode::Linear;

    friend bool operator==(const DSKey&, const DSKey&) = default;
};

/// At least one key frame, sorted by time, without two at the same time. The value is interpolated
/// between keys as their modes say, and constant before the first and after the last.
class DSSDK_API DSAnimation {
public:
    /// Sorts the keys; of several with the same time, the one given last counts. No value if the
    /// list is empty, a time or value is not finite, or a mode is none of DSKeyMode.
    static std::optional<DSAnimation> fromKeys(std::vector<DSKey> keys);

    /// The value at `time` in seconds, by binary search. For NaN the value of the last key.
    double valueAt(double time) const;

    /// The mode of the segment that `time` lies in; linear before the first key frame.
    DSKeyMode modeAt(double time) const;

    const std::vector<DSKey>& keys() const { return keys_; }

private:
    explicit DSAnimation(std::vector<DSKey> keys) : keys_(std::move(keys)) {}

    /// The first key frame after `time`; the end if there is none.
    std::vector<DSKey>::const_iterator firstAfter(double time) const;

    std::vector<DSKey> keys_;
};
